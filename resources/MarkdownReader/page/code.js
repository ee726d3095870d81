// Highlights fenced code as it is about to scroll into view.

const longestHighlighted = 200_000; // characters; anything longer is data rather than code

const highlight = (code) => {
    const language = code.dataset.language;
    if (language === undefined)
        return;
    delete code.dataset.language;
    if (code.textContent.length > longestHighlighted)
        return;
    const { value } = hljs.highlight(code.textContent, { language, ignoreIllegals: true });
    code.replaceChildren(sanitized(value));
};

const codeWatch = new IntersectionObserver((entries) => {
    for (const entry of entries.filter((candidate) => candidate.isIntersecting)) {
        codeWatch.unobserve(entry.target);
        highlight(entry.target);
    }
}, { rootMargin: "1500px 0px" });

const prepareCode = (fragment) => {
    for (const code of fragment.querySelectorAll("pre > code[class*='language-']")) {
        const language = /(?:^|\s)language-(\S+)/.exec(code.className)[1].toLowerCase();
        code.parentElement.tabIndex = 0; // so that the keyboard can scroll it
        if (language === "mermaid" || !hljs.getLanguage(language))
            continue;
        code.dataset.language = language;
        codeWatch.observe(code);
    }
};

window.addEventListener("beforeprint", () => {
    page.querySelectorAll("code[data-language]").forEach(highlight);
});
