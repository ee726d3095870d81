// Connects the page with the program. Runs before the page's own scripts.
"use strict";

(() => {
    let post = () => {};

    // The messages that the page may send to the program.
    const handler = (name) => ({ postMessage: (body) => post(name, body) });
    window.messageHandlers = Object.freeze({
        openExternal: handler("openExternal"),
        readingPosition: handler("readingPosition"),
        shown: handler("shown"),
        rendered: handler("rendered"),
    });

    document.addEventListener("DOMContentLoaded", () => {
        new QWebChannel(qt.webChannelTransport, (channel) => {
            const program = channel.objects.program;
            post = (name, body) => program.postMessage(name, body);
            program.renderRequested.connect((text, theme) => window.renderMarkdown(text, theme));
            program.placeRequested.connect((place) => window.showPlace(place));
            program.pageFinished();
        });
    });
})();
