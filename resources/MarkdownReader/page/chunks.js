// Long documents are put onto the page piece by piece, so that the first screen shows at once.

const chunkSize = 40_000;      // characters of the source's tokens, roughly
const hugeDocument = 250_000;  // from here on pieces that are off the screen are not laid out

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

const lengthOf = (token) => token.content.length + 20;

// Cuts the tokens into runs that stand for themselves: no block and no element of raw HTML goes on
// from one into the next.
const chunksOf = (tokens) => {
    const chunks = [];
    let chunk = [];
    let size = 0;
    let open = 0;
    for (const token of tokens) {
        chunk.push(token);
        size += lengthOf(token);
        if (token.type === "html_block")
            open = Math.max(0, open + openedBy(token.content));
        if (size >= chunkSize && token.level === 0 && token.nesting <= 0 && open === 0) {
            chunks.push(chunk);
            chunk = [];
            size = 0;
        }
    }
    if (chunk.length > 0)
        chunks.push(chunk);
    return chunks;
};

// Lets the page be shown and the mouse and keyboard be heard.
const breathe = () => new Promise((resolve) => {
    const channel = new MessageChannel();
    channel.port1.onmessage = resolve;
    channel.port2.postMessage(null);
});
