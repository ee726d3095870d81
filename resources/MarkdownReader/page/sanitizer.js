// Nothing that a document brings along gets into the page except through here.

const forbiddenTags = ["style", "form", "button", "select", "option", "optgroup", "textarea",
    "fieldset", "audio", "video", "source", "track", "dialog", "slot", "template", "area", "map"];
const sanitizerOptions = {
    USE_PROFILES: { html: true },
    FORBID_TAGS: forbiddenTags,
    FORBID_ATTR: ["style", "tabindex", "autofocus", "contenteditable", "draggable", "hidden",
        "popover", "popovertarget", "srcset", "background", "accesskey"],
    ALLOW_DATA_ATTR: false,
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

const sanitized = (html) => DOMPurify.sanitize(html, sanitizerOptions);
