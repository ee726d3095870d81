// Long documents are read and put onto the page run by run, so that the first screen shows at once.

const firstRun = 12_000; // characters of the source; a screen or two
const usualRun = 40_000;

// Ends the reading of blocks where the run ends: the parser is told that the text does.
const pauses = (parser) => parser.block.ruler.before("table", "pause", (state, line, end, silent) => {
    if (silent || state.level > 0 || !(state.bMarks[line] >= state.runEnd))
        return false;
    state.pausedAt = line;
    state.line = end;
    return true;
});

// Reads the text's blocks, one run a call; null once there is nothing left.
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

// How many elements the raw HTML leaves open, or closes beyond what it opened.
const openedBy = (html) => {
    let open = 0;
    for (const [, slash, name, end] of html.replace(/<!--[\s\S]*?-->/g, "")
        .matchAll(/<(\/?)([a-zA-Z][\w-]*)\b[^>]*?(\/?)>/g)) {
        if (!voidTags.has(name.toLowerCase()) && end === "")
            open += slash ? -1 : 1;
    }
    return open;
};

// The blocks of the text in runs that stand for themselves: no block and no element of raw HTML goes
// on from one into the next. An empty run says that the next one takes longer.
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

// Lets the page be shown and the mouse and keyboard be heard.
const breathe = () => new Promise((resolve) => {
    const channel = new MessageChannel();
    channel.port1.onmessage = resolve;
    channel.port2.postMessage(null);
});
