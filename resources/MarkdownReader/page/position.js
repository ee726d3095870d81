// The reading position: the block at the top of the window, by its line in the source. Long documents
// have their blocks in pieces; blocks off the screen are not asked, since that would lay them out.

const isBelowTop = (element) => element.getBoundingClientRect().bottom > 0;

const blockAtTop = () => {
    let block = [...page.children].find(isBelowTop);
    if (block && pieceLines.has(block))
        block = [...block.children].find(isBelowTop);
    while (block && block.dataset.line === undefined)
        block = block.nextElementSibling;
    return block ?? null;
};

const readingPosition = () => {
    const block = window.scrollY > 0 ? blockAtTop() : null;
    return block
        ? { line: Number(block.dataset.line), offset: block.getBoundingClientRect().top }
        : null;
};

// The size of a piece off the screen is a guess, and so is every place within it. From here on it is
// laid out.
const layOut = (element) => {
    element?.closest(".piece")?.style.setProperty("content-visibility", "visible");
};

const lastBefore = (elements, line, lineOf) =>
    elements.filter((element) => lineOf(element) <= line).pop() ?? null;

const restorePosition = ({ line, offset }) => {
    const ownLine = (element) => Number(element.dataset.line);
    const piece = lastBefore([...page.children], line, (element) => pieceLines.get(element));
    const blocks = [...(piece ?? page).querySelectorAll("[data-line]")];
    const block = lastBefore(blocks, line, ownLine);
    layOut(block);
    if (block)
        window.scrollBy({ top: block.getBoundingClientRect().top - offset, behavior: "instant" });
};
