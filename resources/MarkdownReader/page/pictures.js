// Only local images are loaded. A remote one is replaced by its description and a link to it.

const isLocalPicture = (address) => {
    try {
        const url = new URL(address, document.baseURI);
        return url.protocol === location.protocol || url.protocol === "data:";
    } catch {
        return false;
    }
};

const descriptionOf = (image) => image.alt.trim() || image.title
    || decodeURIComponent(image.getAttribute("src").replace(/[?#].*/, "").split("/").pop()) || "Picture";

const insteadOf = (image, kind) => {
    const address = image.getAttribute("src") ?? "";
    const isLink = kind === "remote-picture" && !image.closest("a");
    const element = document.createElement(isLink ? "a" : "span");
    if (isLink)
        element.href = address;
    element.className = `no-picture ${kind}`;
    element.title = kind === "remote-picture" ? address : `Not found: ${address}`;
    try {
        element.textContent = descriptionOf(image);
    } catch {
        element.textContent = "Picture";
    }
    return element;
};

const preparePictures = (fragment) => {
    for (const image of fragment.querySelectorAll("img")) {
        if (!isLocalPicture(image.getAttribute("src") ?? "")) {
            image.replaceWith(insteadOf(image, "remote-picture"));
            continue;
        }
        image.decoding = "async";
        image.addEventListener("error", () => {
            image.replaceWith(insteadOf(image, "missing-picture"));
        }, { once: true });
    }
};
