// Mermaid diagrams, rendered one at a time and again when the theme changes. The old drawing stays
// until the new one is ready.

const diagramColors = {
    light: {
        darkMode: false, background: "#ffffff", primaryColor: "#e8f0fe", primaryTextColor: "#1b1b1f",
        primaryBorderColor: "#7aa5ef", secondaryColor: "#f3f0fb", tertiaryColor: "#eef6f0",
        lineColor: "#6b6b75", textColor: "#1b1b1f", noteBkgColor: "#fff6d6",
        noteTextColor: "#3b3413", noteBorderColor: "#e2cf86", edgeLabelBackground: "#ffffff",
    },
    dark: {
        darkMode: true, background: "#1c1c1f", primaryColor: "#26344d", primaryTextColor: "#ececf1",
        primaryBorderColor: "#5b83c4", secondaryColor: "#352e47", tertiaryColor: "#26382d",
        lineColor: "#9a9aa5", textColor: "#ececf1", noteBkgColor: "#3d3721",
        noteTextColor: "#f0e6c0", noteBorderColor: "#80713a", edgeLabelBackground: "#1c1c1f",
    },
};

const drawings = new Map(); // SVG by theme and source
let diagramCount = 0;
let diagramTheme = null;
let diagramQueue = Promise.resolve();

// Looked up before a document can add an element with the same id.
let diagramLibrarySource = document.getElementById("diagram-library");

// The library is large, so it is loaded with the first diagram.
const diagramLibrary = () => {
    if (diagramLibrarySource) {
        const script = document.createElement("script");
        script.nonce = ownNonce;
        script.textContent = diagramLibrarySource.textContent;
        diagramLibrarySource.replaceWith(script);
        diagramLibrarySource = null;
    }
    return globalThis.mermaid;
};

const draw = async (source, theme) => {
    const key = `${theme}\n${source}`;
    if (!drawings.has(key)) {
        const mermaid = diagramLibrary();
        if (diagramTheme !== theme) {
            diagramTheme = theme;
            mermaid.initialize({
                startOnLoad: false, securityLevel: "strict", suppressErrorRendering: true,
                theme: "base", look: "classic", fontFamily: getComputedStyle(page).fontFamily,
                themeVariables: diagramColors[theme],
                secure: ["secure", "securityLevel", "startOnLoad", "maxTextSize", "maxEdges",
                    "suppressErrorRendering", "themeCSS", "fontFamily", "altFontFamily"],
            });
        }
        const { svg } = await mermaid.render(`diagram-${++diagramCount}`, source);
        drawings.set(key, svg);
    }
    return drawings.get(key);
};

// Labels may contain HTML, which may contain images.
const drawingElements = (svg) => {
    const drawing = new DOMParser().parseFromString(svg, "text/html").body;
    preparePictures(drawing);
    for (const image of drawing.querySelectorAll("image, use")) {
        if (!isLocalPicture(linkAddress(image) ?? ""))
            image.remove();
    }
    return drawing.childNodes;
};

const showDrawing = (figure, svg) => {
    figure.replaceChildren(...drawingElements(svg));
    figure.classList.remove("pending", "failed");
};

const showFailure = (figure, source, message) => {
    const said = Object.assign(document.createElement("figcaption"), { textContent: message });
    const text = Object.assign(document.createElement("pre"), { textContent: source });
    figure.replaceChildren(text, said);
    figure.classList.remove("pending");
    figure.classList.add("failed");
};

const drawInto = async (figure, source, theme) => {
    try {
        showDrawing(figure, await draw(source, theme));
    } catch (error) {
        // Mermaid leaves its scratch element behind when it fails.
        document.getElementById(`ddiagram-${diagramCount}`)?.remove();
        showFailure(figure, source, String(error?.message ?? error));
    }
};

const diagramSources = new WeakMap();

const queueDrawing = (figure, theme) => {
    const source = diagramSources.get(figure);
    const known = drawings.get(`${theme}\n${source}`);
    if (known) {
        showDrawing(figure, known);
        return;
    }
    diagramQueue = diagramQueue.then(() => {
        // The document or the theme may have changed in the meantime.
        if (figure.isConnected && currentTheme() === theme)
            return drawInto(figure, source, theme);
        return undefined;
    });
};

const prepareDiagrams = (fragment) => {
    for (const code of fragment.querySelectorAll("pre > code.language-mermaid")) {
        const figure = document.createElement("figure");
        figure.className = "diagram pending";
        figure.dataset.line = code.parentElement.dataset.line ?? "";
        diagramSources.set(figure, code.textContent);
        code.parentElement.replaceWith(figure);
    }
};

const drawDiagrams = (root, theme) => {
    root.querySelectorAll("figure.diagram").forEach((figure) => {
        if (diagramSources.has(figure))
            queueDrawing(figure, theme);
    });
};
