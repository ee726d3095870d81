// The texts of footnotes stand at the end of the document, wherever it has them.

const footnoteParser = markdownit().use(markdownitFootnote);
footnoteParser.core.ruler.enableOnly(["footnote_tail"]);

// Moves the texts of footnotes from the tokens into `held`; returns what is left.
const withoutFootnotes = (tokens, held) => {
    let depth = 0;
    return tokens.filter((token) => {
        if (token.type === "footnote_reference_open")
            ++depth;
        const isHeld = depth > 0;
        if (isHeld)
            held.push(token);
        if (token.type === "footnote_reference_close")
            --depth;
        return !isHeld;
    });
};

// The footnotes that the document refers to, of all the texts that it has.
const footnotesOf = (held, env) => {
    const state = new footnoteParser.core.State("", footnoteParser, env);
    state.tokens = held;
    footnoteParser.core.process(state);
    return state.tokens;
};
