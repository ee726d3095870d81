// From the text to the page.

const ownNonce = document.currentScript.nonce;
const page = document.getElementById("document");

const parser = markdownit({ html: true, linkify: true, typographer: false })
    .use(markdownitFootnote)
    .use(markdownitTaskLists)
    .use(anchors)
    .use(alerts);
parser.linkify.set({ fuzzyLink: false, fuzzyEmail: false });

// Blocks know their line, and columns of tables their side without a style.
parser.core.ruler.push("places", (state) => {
    for (const token of state.tokens) {
        if (token.map && token.level === 0 && token.nesting >= 0)
            token.attrSet("data-line", String(token.map[0] + (state.env.firstLine ?? 0)));
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

const prepare = (fragment) => {
    preparePictures(fragment);
    prepareDiagrams(fragment);
    prepareCode(fragment);
    return fragment;
};

const currentTheme = () => (document.documentElement.classList.contains("dark") ? "dark" : "light");

const applyTheme = (theme) => {
    const root = document.documentElement;
    root.classList.toggle("dark", theme === "dark");
    root.classList.toggle("light", theme !== "dark");
};

let rendering = 0;
let shownText = null;

const putOnPage = async (text, isCurrent) => {
    const { matter, body, lines } = splitFrontMatter(text);
    const env = { firstLine: lines };
    const chunks = chunksOf(parser.parse(body, env));
    const position = readingPosition();
    const isHuge = text.length >= hugeDocument;
    const pieces = [];
    let isShown = false;
    if (matter !== null)
        pieces.push(frontMatterElement(matter));

    for (const chunk of chunks) {
        const fragment = prepare(sanitized(parser.renderer.render(chunk, parser.options, env)));
        const piece = isHuge ? document.createElement("section") : fragment;
        if (isHuge) {
            piece.className = "piece";
            piece.append(fragment);
        }
        // A text that was read before comes back as a whole, where the reader was.
        if (isShown)
            page.append(piece);
        else
            pieces.push(piece);
        if (!isShown && position === null) {
            page.replaceChildren(...pieces);
            isShown = true;
        }
        await breathe();
        if (!isCurrent())
            return false;
    }
    if (!isShown) {
        page.replaceChildren(...pieces);
        restorePosition(position);
    }
    return true;
};

globalThis.renderMarkdown = async (text, theme) => {
    const began = performance.now();
    const own = ++rendering;
    const isCurrent = () => own === rendering;
    applyTheme(theme);
    // A byte order mark and the line ends of other systems mean nothing here.
    const plain = text.replace(/^\uFEFF/, "").replace(/\r\n?/g, "\n");
    if (plain !== shownText) {
        shownText = null;
        if (!await putOnPage(plain, isCurrent))
            return;
        shownText = plain;
    }
    drawDiagrams(page, currentTheme());
    await diagramQueue;
    if (isCurrent())
        window.messageHandlers?.rendered.postMessage(Math.round(performance.now() - began));
};
