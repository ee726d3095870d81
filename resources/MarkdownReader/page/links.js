// Links never navigate: fragments scroll the page, all others are opened by the program.

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
    // The target may be in a part that is not rendered yet.
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
        // Not a URL.
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
