// Front matter: the metadata block at the start of a document.

// Separates the front matter, null if there is none, from the body. `lines` is its length.
const splitFrontMatter = (text) => {
    const match = /^---[ \t]*\n([\s\S]*?)\n?(?:---|\.\.\.)[ \t]*(?:\n|$)/.exec(text);
    // Without a key it is just a thematic break.
    if (!match || !/^[ \t]*[\w-]+[ \t]*:/m.test(match[1]))
        return { matter: null, body: text, lines: 0 };
    return {
        matter: match[1],
        body: text.slice(match[0].length),
        lines: match[0].split("\n").length - 1,
    };
};

const unquoted = (value) => value.replace(/^(["'])(.*)\1$/, "$2").replace(/^\[(.*)\]$/, "$1");

// The keys and values of flat front matter; null if it is nested.
const simpleEntries = (matter) => {
    const entries = [];
    for (const line of matter.split("\n")) {
        const entry = /^([\w-]+)[ \t]*:[ \t]*(.*)$/.exec(line);
        if (entry && !/^[|>&*{!]/.test(entry[2])) {
            entries.push([entry[1], unquoted(entry[2])]);
        } else if (/^[ \t]*-[ \t]+[^:]*$/.test(line) && entries.length > 0) {
            const last = entries[entries.length - 1];
            last[1] += (last[1] && ", ") + unquoted(line.replace(/^[ \t]*-[ \t]+/, ""));
        } else if (line.trim() !== "" && !line.startsWith("#")) {
            return null;
        }
    }
    return entries;
};

const frontMatterElement = (matter) => {
    const box = document.createElement("aside");
    box.className = "front-matter";
    const entries = simpleEntries(matter);
    if (!entries) {
        box.append(Object.assign(document.createElement("pre"), { textContent: matter }));
        return box;
    }
    const list = document.createElement("dl");
    for (const [name, value] of entries) {
        list.append(Object.assign(document.createElement("dt"), { textContent: name }),
            Object.assign(document.createElement("dd"), { textContent: value }));
    }
    box.append(list);
    return box;
};
