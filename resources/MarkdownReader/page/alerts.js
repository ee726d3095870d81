// Alerts: block quotes that begin with [!NOTE], [!TIP] and so on.

const alertTitles = {
    note: "Note", tip: "Tip", important: "Important", warning: "Warning", caution: "Caution",
};

const alerts = (parser) => parser.core.ruler.after("inline", "alerts", (state) => {
    state.tokens.forEach((token, index) => {
        const [paragraph, inline] = state.tokens.slice(index + 1, index + 3);
        if (token.type !== "blockquote_open" || paragraph?.type !== "paragraph_open")
            return;
        const match = /^\[!(note|tip|important|warning|caution)\][ \t]*(?:\n|$)/i.exec(inline.content);
        if (!match)
            return;
        const kind = match[1].toLowerCase();
        token.attrJoin("class", `alert ${kind}`);
        paragraph.attrJoin("class", "alert-text");
        // Drop the marker and the rest of its line.
        const end = inline.children.findIndex((child) => child.type === "softbreak"
            || child.type === "hardbreak");
        inline.children = end < 0 ? [] : inline.children.slice(end + 1);
        const title = new state.Token("html_block", "", 0);
        title.content = `<p class="alert-title">${alertTitles[kind]}</p>`;
        title.level = paragraph.level;
        state.tokens.splice(index + 1, 0, title);
    });
});
