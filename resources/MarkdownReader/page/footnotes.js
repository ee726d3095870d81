// Moves footnotes to the end of the document, wherever they are defined.

const footnoteParser = markdownit().use(markdownitFootnote);
footnoteParser.core.ruler.enableOnly(["footnote_tail"]);

// Moves footnote definitions from the tokens to `held` and returns the remaining tokens.
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

// The tokens of the footnotes that the document refers to; unused definitions are left out.
const footnotesOf = (held, env) => {
    const state = new footnoteParser.core.State("", footnoteParser, env);
    state.tokens = held;
    footnoteParser.core.process(state);
    return state.tokens;
};
