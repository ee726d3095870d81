// The reading position: the source line of the block at the top of the window. Long documents are
// divided into pieces; blocks in off-screen pieces are not measured, since that would force a
// layout.

const isBelowTop = (element) => element.getBoundingClientRect().bottom > 0;

const blockAtTop = () => {
    let block = [...page.children].find(isBelowTop);
    if (block && pieceLines.has(block))
        block = [...block.children].find(isBelowTop);
    while (block && block.dataset.line === undefined)
        block = block.nextElementSibling;
    return block ?? null;
};

// The source line of the next block, or of this one if it is the last.
const lineBehind = (block) => {
    let next = block.nextElementSibling;
    while (next && next.dataset.line === undefined)
        next = next.nextElementSibling;
    return next ? Number(next.dataset.line)
        : pieceLines.get(block.parentElement.nextElementSibling) ?? Number(block.dataset.line);
};

const readingPosition = () => {
    const block = window.scrollY > 0 ? blockAtTop() : null;
    if (!block)
        return null;
    const line = Number(block.dataset.line);
    const { top, height } = block.getBoundingClientRect();
    const hidden = Math.min(1, Math.max(0, -top / (height || 1)));
    const sourceLine = line + Math.max(0, Math.floor(hidden * (lineBehind(block) - line)));
    return { line, offset: top, sourceLine };
};

const tellPosition = () => {
    window.messageHandlers?.readingPosition.postMessage(
        readingPosition() ?? { line: 0, offset: 0, sourceLine: 0 });
};

const positionPause = 100; // ms
let isPositionDue = false;

window.addEventListener("scroll", () => {
    if (isPositionDue)
        return;
    isPositionDue = true;
    setTimeout(() => {
        isPositionDue = false;
        tellPosition();
    }, positionPause);
}, { passive: true });

// Off-screen pieces have an estimated size, so positions within them are unreliable. This lays out
// the piece of an element for good.
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

const windowTop = 40; // pixels; a block that starts above this counts as being at the top

// Where the program or the user wants to go, as long as that place is not rendered yet.
let wantedPlace = null;

globalThis.showPlace = (place) => {
    if (shownText === null)
        wantedPlace = place;
    else if (place.fragment)
        scrollToFragment(place.fragment);
    else
        restorePosition(place);
};

// Called as the document grows: earlier there may not have been enough below the target to scroll
// it to the top.
const goToWantedFragment = () => {
    const target = wantedPlace?.fragment ? fragmentTarget(wantedPlace.fragment) : null;
    if (!target)
        return;
    layOut(target);
    target.scrollIntoView();
    if (target.getBoundingClientRect().top < windowTop)
        wantedPlace = null;
};
