// Renders Markdown into the page.

const ownNonce = document.currentScript.nonce;
const page = document.getElementById("document");

const parser = markdownit({ html: true, linkify: true, typographer: false })
    .use(markdownitFootnote)
    .use(markdownitTaskLists)
    .use(anchors)
    .use(alerts)
    .use(pauses);
parser.linkify.set({ fuzzyLink: false, fuzzyEmail: false });
// Called explicitly, per run or at the end of the document.
parser.core.ruler.disable(["normalize", "block", "inline", "footnote_tail"]);

// Records the source line of each block, and turns the alignment style of table cells, which the
// sanitizer would drop, into an attribute.
parser.core.ruler.push("places", (state) => {
    for (const token of state.tokens) {
        if (token.map && token.level === 0 && token.nesting >= 0)
            token.attrSet("data-line", String(token.map[0] + state.env.firstLine));
        const side = /^text-align:(\w+)$/.exec(token.attrGet("style") ?? "");
        if (side) {
            token.attrs = token.attrs.filter(([name]) => name !== "style");
            token.attrSet("align", side[1]);
        }
    }
});
parser.renderer.rules.table_open = (tokens, index, options, env, self) =>
    `<div class="table-box">${self.renderToken(tokens, index, options)}`;
parser.renderer.rules.table_close = () => "</table></div>\n";

// The renderer puts the line of a code block or table on the inner element.
const liftLines = (fragment) => {
    for (const inner of fragment.querySelectorAll("pre > code[data-line], div > table[data-line]")) {
        inner.parentElement.dataset.line = inner.dataset.line;
        delete inner.dataset.line;
    }
};

const prepare = (fragment) => {
    liftLines(fragment);
    preparePictures(fragment);
    prepareDiagrams(fragment);
    prepareCode(fragment);
    return fragment;
};

const rendered = (tokens, env) => {
    const state = new parser.core.State("", parser, env);
    state.tokens = tokens;
    parser.core.process(state);
    return prepare(sanitized(parser.renderer.render(state.tokens, parser.options, env)));
};

// Yields the parts of the document in order, as fragments with their first source line. A null
// means that the next part is not ready yet.
const partsOf = function* (text) {
    const { matter, body, lines } = splitFrontMatter(text);
    const env = { firstLine: lines, slugs: new Map() };
    if (matter !== null)
        yield { line: 0, content: frontMatterElement(matter) };
    let runs = runsOf(body.replaceAll("\0", "\uFFFD"), env);
    // Links and footnotes may be defined after their use, so parse everything first.
    if (body.includes("]:")) {
        const all = [];
        for (const run of runs) {
            all.push(run);
            yield null;
        }
        runs = all;
    }
    const held = [];
    for (const run of runs) {
        for (const token of run) {
            if (token.type === "inline")
                parser.inline.parse(token.content, parser, env, token.children);
        }
        const line = lines + (run.find((token) => token.map)?.map[0] ?? 0);
        const tokens = withoutFootnotes(run, held);
        yield tokens.length > 0 ? { line, content: rendered(tokens, env) } : null;
    }
    if (held.length > 0 || env.footnotes?.list)
        yield { line: Infinity, content: rendered(footnotesOf(held, env), env) };
};

const currentTheme = () => (document.documentElement.classList.contains("dark") ? "dark" : "light");

const applyTheme = (theme) => {
    const root = document.documentElement;
    root.classList.toggle("dark", theme === "dark");
    root.classList.toggle("light", theme !== "dark");
};

const hugeDocument = 250_000; // characters; longer documents are divided into pieces
const pieceLines = new WeakMap(); // the first source line of each piece

// A rough height in pixels, so that the scroll bar is about right before the piece is laid out.
const guessedHeight = (piece) =>
    Math.round(45 * piece.childElementCount + 0.3 * piece.textContent.length);

const pieceOf = ({ line, content }) => {
    const piece = document.createElement("section");
    piece.className = "piece";
    piece.append(content);
    piece.style.containIntrinsicSize = `auto ${guessedHeight(piece)}px`;
    pieceLines.set(piece, line);
    return piece;
};

let rendering = 0;
let shownText = null;

const putOnPage = async (text, began, isCurrent) => {
    const position = wantedPlace && !wantedPlace.fragment ? wantedPlace : readingPosition();
    const waiting = []; // until the part with the reading position is there
    let isShown = false;
    const show = () => {
        page.replaceChildren(...waiting);
        isShown = true;
        if (position)
            restorePosition(position);
        requestAnimationFrame(() => tell("shown", began));
    };

    for (const part of partsOf(text)) {
        if (part) {
            const isDue = position === null || part.line > position.line;
            const piece = text.length >= hugeDocument ? pieceOf(part) : part.content;
            if (isShown)
                page.append(piece);
            else
                waiting.push(piece);
            if (!isShown && isDue)
                show();
            goToWantedFragment();
        }
        await breathe();
        if (!isCurrent())
            return false;
    }
    if (!isShown)
        show();
    goToWantedFragment();
    return true;
};

// Reports the milliseconds since `began` to the program.
const tell = (what, began) =>
    window.messageHandlers?.[what].postMessage(Math.round(performance.now() - began));

globalThis.renderMarkdown = async (text, theme) => {
    const began = performance.now();
    const own = ++rendering;
    const isCurrent = () => own === rendering;
    applyTheme(theme);
    // Strip a byte order mark and normalize line endings.
    const plain = text.replace(/^\uFEFF/, "").replace(/\r\n?/g, "\n");
    if (plain !== shownText) {
        shownText = null;
        if (!await putOnPage(plain, began, isCurrent))
            return;
        shownText = plain;
        wantedPlace = null;
        tellPosition();
    }
    drawDiagrams(page, currentTheme());
    await diagramQueue;
    if (isCurrent())
        tell("rendered", began);
};
