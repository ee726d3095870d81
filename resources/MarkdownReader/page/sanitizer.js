// Nothing that a document brings along gets into the page except through here.

const forbiddenTags = ["style", "form", "button", "select", "option", "optgroup", "textarea",
    "fieldset", "audio", "video", "source", "track", "dialog", "slot", "template", "area", "map"];
const sanitizerOptions = {
    USE_PROFILES: { html: true },
    FORBID_TAGS: forbiddenTags,
    FORBID_ATTR: ["style", "tabindex", "autofocus", "contenteditable", "draggable", "hidden",
        "popover", "popovertarget", "srcset", "background", "accesskey"],
    ALLOW_DATA_ATTR: false,
    ADD_ATTR: ["data-line"],
    ALLOW_UNKNOWN_PROTOCOLS: false,
    SANITIZE_NAMED_PROPS: true, // with the prefix of anchors
    RETURN_DOM_FRAGMENT: true,
};

// The only field that documents have is the box of a task.
DOMPurify.addHook("uponSanitizeElement", (node, data) => {
    if (data.tagName === "input" && node.getAttribute?.("type") !== "checkbox")
        node.remove();
});
DOMPurify.addHook("afterSanitizeElements", (node) => {
    if (node.nodeName === "INPUT")
        node.setAttribute("disabled", "");
});

// Most of a document is what the renderer itself writes: these elements with these attributes. That
// is let through as it is, since a close look at every node takes longer than all the rest.
const anything = () => true;
const ownName = (value) => value.startsWith(namePrefix);
const webOrRelative = (value) => /^(?:(?:https?|mailto):[^\s\0]*|[^\s\0:/?#]*(?:[/?#][^\s\0]*)?)$/i.test(value);
const plainTags = new Set(["A", "BLOCKQUOTE", "BR", "CODE", "DIV", "EM", "H1", "H2", "H3", "H4", "H5",
    "H6", "HR", "IMG", "LI", "OL", "P", "PRE", "S", "SPAN", "STRONG", "TABLE", "TBODY", "TD", "TH",
    "THEAD", "TR", "UL"]);
const plainAttributes = new Map(Object.entries({
    "align": anything, "alt": anything, "class": anything, "data-line": anything, "href": webOrRelative,
    "id": ownName, "src": webOrRelative, "start": anything, "title": anything,
}));

const isPlain = (fragment) => {
    const nodes = document.createTreeWalker(fragment, NodeFilter.SHOW_ALL & ~NodeFilter.SHOW_TEXT);
    while (nodes.nextNode()) {
        const node = nodes.currentNode;
        if (node.namespaceURI !== page.namespaceURI || !plainTags.has(node.tagName))
            return false;
        for (const { name, value } of node.attributes) {
            if (!plainAttributes.get(name)?.(value))
                return false;
        }
    }
    return true;
};

const sanitized = (html) => {
    // Nothing within a template is loaded or run.
    const template = document.createElement("template");
    template.innerHTML = html;
    return isPlain(template.content) ? template.content : DOMPurify.sanitize(html, sanitizerOptions);
};
