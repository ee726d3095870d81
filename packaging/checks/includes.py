#!/usr/bin/python3
"""Reads the includes of src/ and fails on one that runs the wrong way.

app -> views -> view models and services -> stores and records -> interfaces of platform/

    includes.py [FOLDER]    FOLDER holds src/; the project by default
"""

import re
import sys
from pathlib import Path

# The sources of src/app that choose the back-ends: they alone name them.
COMPOSITION_ROOT = re.compile(r"app/(main|X11Desktop)\.(cpp|h)")

# Classes that only keep data; what decides and acts builds on them, never the other way round.
RECORD = re.compile(r"(Store|Item|Manifest|Note|NoteColor|NoteFrame|Document)$")
SERVICE = re.compile(r"(ViewModel|Model|Monitor|Manager|Controller|Coordinator|Animator|Section)$")

BACK_ENDS = ("platform/x11", "platform/desktop")
# What no back-end of another window system could offer, and how its sources would be spelt.
X11_NAMES = re.compile(r"\bxcb|\bX11|\bXlib|_NET_WM|qxcb", re.IGNORECASE)

_INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


class Source:
    """A file of src/ and what it includes."""

    def __init__(self, path, root):
        self.name = path.relative_to(root).as_posix()
        self.text = path.read_text(encoding="utf-8")
        found = _INCLUDE.findall(self.text)
        self.own = [name for kind, name in found if kind == '"']
        self.foreign = [name for kind, name in found if kind == "<"]
        self.is_composition_root = COMPOSITION_ROOT.fullmatch(self.name) is not None

    @property
    def folder(self):
        return self.name.rpartition("/")[0]


def kind_of(name):
    """The layer of a file of src/, by its path."""
    folder = name.rpartition("/")[0]
    for back_end in BACK_ENDS:
        if (folder + "/").startswith(back_end + "/"):
            return "back-end"
    if folder == "platform":
        return "interface"
    if folder == "core":
        return "core"
    if folder == "app":
        return "app"
    if folder.endswith(("/view", "/webengine")):
        return "view"
    return "record" if RECORD.search(Path(name).stem) else "service"


# What each layer may include.
MAY_INCLUDE = {
    "interface": {"interface"},
    "core": {"interface", "core"},
    "back-end": {"interface", "core", "back-end"},
    "record": {"interface", "core", "record"},
    "service": {"interface", "core", "record", "service"},
    "view": {"interface", "core", "record", "service", "view"},
    "app": {"interface", "core", "record", "service", "view", "app"},
}


def breaches(sources, names):
    """The broken rules, one line each. `names` are the files that exist."""
    for source in sources:
        yield from _directions(source, names)
        yield from _spelling(source)
        yield from _window_system(source)
        yield from _toolkit(source)
    yield from _circles(sources)


def _directions(source, names):
    layer = kind_of(source.name)
    for included in source.own:
        if included not in names:
            if "/" not in included and not included.endswith(".moc"):
                yield f'{source.name}: "{included}" is not named from src/'
            continue
        other = kind_of(included)
        if other == "back-end" and source.is_composition_root:
            continue
        if other not in MAY_INCLUDE[layer]:
            yield f"{source.name}: a {layer} must not include the {other} {included}"
        elif layer == other == "back-end" and not _same_back_end(source.name, included):
            yield f"{source.name}: a back-end must not include another one's {included}"
        elif layer == "record" and SERVICE.search(Path(included).stem):
            yield f"{source.name}: a record must not include the service {included}"


def _same_back_end(one, other):
    return any(one.startswith(b) and other.startswith(b) for b in BACK_ENDS)


def _spelling(source):
    for included in source.foreign:
        if re.fullmatch(r"Q[A-Z]\w*", included):
            yield f"{source.name}: <{included}> is not named by its module, as <QtCore/...>"


def _window_system(source):
    if source.folder.startswith("platform/x11") or source.is_composition_root:
        return
    for number, line in enumerate(source.text.splitlines(), 1):
        if X11_NAMES.search(line):
            yield f"{source.name}:{number}: names the window system: {line.strip()}"


def _toolkit(source):
    layer = kind_of(source.name)
    if layer in ("interface", "core", "record", "service"):
        for included in source.foreign:
            if included.startswith("QtWidgets"):
                yield f"{source.name}: a {layer} must do without <{included}>"
    if layer != "back-end" and re.search(r"\bQClipboard\b|\bclipboard\(\)->", source.text):
        yield f"{source.name}: only platform/ may touch QClipboard"


def _circles(sources):
    """Folders that include each other, directly or in a ring."""
    edges = {}
    for source in sources:
        folder = source.folder
        for included in source.own:
            other = included.rpartition("/")[0]
            if other and other != folder:
                edges.setdefault(folder, set()).add(other)
    done = set()

    def visit(folder, path):
        if folder in path:
            yield "folders include each other in a ring: " + " -> ".join(
                path[path.index(folder):] + [folder])
            return
        if folder in done:
            return
        for other in sorted(edges.get(folder, ())):
            yield from visit(other, path + [folder])
        done.add(folder)

    for folder in sorted(edges):
        yield from visit(folder, [])


def check(project):
    root = Path(project) / "src"
    paths = sorted(path for path in root.rglob("*") if path.suffix in (".cpp", ".h"))
    sources = [Source(path, root) for path in paths]
    return list(breaches(sources, {source.name for source in sources}))


def main():
    project = sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = check(project)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
