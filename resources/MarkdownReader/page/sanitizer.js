// All HTML from a document passes through here on its way into the page.

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
    SANITIZE_NAMED_PROPS: true, // with the prefix that anchors have
    RETURN_DOM_FRAGMENT: true,
};

// Task list checkboxes are the only form controls, and they are disabled.
DOMPurify.addHook("uponSanitizeElement", (node, data) => {
    if (data.tagName === "input" && node.getAttribute?.("type") !== "checkbox")
        node.remove();
});
DOMPurify.addHook("afterSanitizeElements", (node) => {
    if (node.nodeName === "INPUT")
        node.setAttribute("disabled", "");
});

// Most HTML comes from the renderer itself and consists of these elements and attributes. It
// bypasses DOMPurify, which would take longer than everything else together.
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
    // A template's content is inert: nothing in it is loaded or executed.
    const template = document.createElement("template");
    template.innerHTML = html;
    return isPlain(template.content) ? template.content : DOMPurify.sanitize(html, sanitizerOptions);
};
