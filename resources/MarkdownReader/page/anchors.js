// Heading anchors, with the slugs that code forges generate.

// Prefixed to every name that a document defines, so that none clashes with the page's own.
const namePrefix = "user-content-";

const headingSlug = (text) => text.trim().toLowerCase()
    .replace(/[^\p{L}\p{M}\p{N}\p{Pc}\- ]/gu, "")
    .replace(/ /g, "-");

// The visible text of a heading, without markup.
const headingText = (tokens) => tokens.map((token) => {
    if (token.children)
        return headingText(token.children);
    return token.type === "text" || token.type === "code_inline" ? token.content : "";
}).join("");

// The slug, with a number appended if it is taken. `taken` maps each slug to its last number.
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

// The element that a URL fragment refers to; null if there is none.
const fragmentTarget = (fragment) => {
    let name = fragment;
    try {
        name = decodeURIComponent(fragment);
    } catch {
        // Not percent-encoded after all: use it as it is.
    }
    for (const candidate of [namePrefix + name, namePrefix + name.toLowerCase(), name]) {
        const target = page.querySelector(`[id="${CSS.escape(candidate)}"], a[name="${CSS.escape(candidate)}"]`);
        if (target)
            return target;
    }
    return null;
};
