// Links never move the page: anchors scroll it, everything else is the program's to open.

const linkAddress = (link) => link.getAttribute("href")
    ?? link.getAttributeNS("http://www.w3.org/1999/xlink", "href");

const scrollToFragment = (fragment) => {
    if (fragment === "" || fragment === "top") {
        window.scrollTo({ top: 0 });
        return;
    }
    const target = fragmentTarget(fragment);
    layOut(target);
    target?.scrollIntoView();
    // The rest of the document may still be on its way.
    if (shownText === null)
        wantedPlace = { fragment };
};

const follow = (address) => {
    if (address.startsWith("#")) {
        scrollToFragment(address.slice(1));
        return;
    }
    try {
        window.messageHandlers.openExternal.postMessage(new URL(address, document.baseURI).href);
    } catch {
        // What is no address leads nowhere.
    }
};

for (const kind of ["click", "auxclick"]) {
    document.addEventListener(kind, (event) => {
        const link = event.target.closest?.("a");
        if (!link)
            return;
        event.preventDefault();
        const address = linkAddress(link);
        if (address !== null && event.button !== 2)
            follow(address.trim());
    }, true);
}

document.addEventListener("dragstart", (event) => {
    if (event.target.closest?.("a, img"))
        event.preventDefault();
});
