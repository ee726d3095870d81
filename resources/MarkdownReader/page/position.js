// The reading position: the block at the top of the window, by its line in the source.

const positioned = () => [...page.querySelectorAll("[data-line]")];

const readingPosition = () => {
    if (window.scrollY <= 0)
        return null;
    const block = positioned().find((element) => element.getBoundingClientRect().bottom > 0);
    return block
        ? { line: Number(block.dataset.line), offset: block.getBoundingClientRect().top }
        : null;
};

const restorePosition = (position) => {
    if (!position)
        return;
    const block = positioned().filter((element) => Number(element.dataset.line) <= position.line).pop();
    if (block)
        window.scrollBy({ top: block.getBoundingClientRect().top - position.offset, behavior: "instant" });
};
