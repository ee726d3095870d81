// The anchors of headings, named as the large forges name them.

// Set before every name that a document gives, so that none is that of something else in the page.
const namePrefix = "user-content-";

const headingSlug = (text) => text.trim().toLowerCase()
    .replace(/[^\p{L}\p{M}\p{N}\p{Pc}\- ]/gu, "")
    .replace(/ /g, "-");

// What a reader sees of a heading: its text, without the marks.
const headingText = (tokens) => tokens.map((token) => {
    if (token.children)
        return headingText(token.children);
    return token.type === "text" || token.type === "code_inline" ? token.content : "";
}).join("");

const anchors = (parser) => parser.use(markdownItAnchor, {
    slugify: headingSlug,
    getTokensText: headingText,
    uniqueSlugStartIndex: 1,
    tabIndex: false,
    callback: (token, { slug }) => token.attrSet("id", namePrefix + slug),
});

// The element that a fragment of an address means; null when there is none.
const fragmentTarget = (fragment) => {
    let name = fragment;
    try {
        name = decodeURIComponent(fragment);
    } catch {
        // Not everything after a # was meant to be decoded.
    }
    for (const candidate of [namePrefix + name, namePrefix + name.toLowerCase(), name]) {
        const target = page.querySelector(`[id="${CSS.escape(candidate)}"], a[name="${CSS.escape(candidate)}"]`);
        if (target)
            return target;
    }
    return null;
};
