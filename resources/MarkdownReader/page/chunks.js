// Parses a document in runs of blocks, so that the first screen of a long one appears at once.

const firstRun = 12_000; // characters of source; one or two screens
const usualRun = 40_000;

// Stops the block parser at the end of a run by making it believe that the text ends there.
const pauses = (parser) => parser.block.ruler.before("table", "pause", (state, line, end, silent) => {
    if (silent || state.level > 0 || !(state.bMarks[line] >= state.runEnd))
        return false;
    state.pausedAt = line;
    state.line = end;
    return true;
});

// Returns a function that parses the next run of blocks; it returns null at the end of the text.
const blockReader = (text, env) => {
    const state = new parser.block.State(text, parser, env, []);
    let line = 0;
    return (size) => {
        if (line >= state.lineMax)
            return null;
        state.tokens = [];
        state.runEnd = state.bMarks[line] + size;
        state.pausedAt = state.lineMax;
        parser.block.tokenize(state, line, state.lineMax);
        line = state.pausedAt;
        return state.tokens;
    };
};

const voidTags = new Set(["area", "base", "br", "col", "embed", "hr", "img", "input", "link", "meta",
    "source", "track", "wbr", "p", "li", "dt", "dd", "tr", "td", "th"]);

// How many more elements the raw HTML opens than it closes; negative if it closes more.
const openedBy = (html) => {
    let open = 0;
    for (const [, slash, name, end] of html.replace(/<!--[\s\S]*?-->/g, "")
        .matchAll(/<(\/?)([a-zA-Z][\w-]*)\b[^>]*?(\/?)>/g)) {
        if (!voidTags.has(name.toLowerCase()) && end === "")
            open += slash ? -1 : 1;
    }
    return open;
};

// Yields self-contained runs of blocks: no block and no raw HTML element continues into the next
// run. An empty run means that the next one is still being collected.
const runsOf = function* (text, env) {
    const read = blockReader(text, env);
    let run = [];
    let open = 0;
    for (let tokens = read(firstRun); tokens; tokens = read(usualRun)) {
        for (const token of tokens) {
            run.push(token);
            if (token.type === "html_block")
                open = Math.max(0, open + openedBy(token.content));
        }
        if (open === 0) {
            yield run;
            run = [];
        } else {
            yield [];
        }
    }
    if (run.length > 0)
        yield run;
};

// Lets the browser paint and handle input.
const breathe = () => new Promise((resolve) => {
    const channel = new MessageChannel();
    channel.port1.onmessage = resolve;
    channel.port2.postMessage(null);
});
