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

// The slug, or with a number where it is among the taken ones, which are counted.
const uniqueSlug = (slug, taken) => {
    let unique = slug;
    while (taken.has(unique)) {
        taken.set(slug, taken.get(slug) + 1);
        unique = `${slug}-${taken.get(slug)}`;
    }
    taken.set(unique, 0);
    return unique;
};

const anchors = (parser) => parser.core.ruler.push("anchors", (state) => {
    state.tokens.forEach((token, index) => {
        if (token.type !== "heading_open")
            return;
        const slug = headingSlug(headingText(state.tokens[index + 1].children));
        token.attrSet("id", namePrefix + uniqueSlug(slug, state.env.slugs));
    });
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
