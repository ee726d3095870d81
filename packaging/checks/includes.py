#!/usr/bin/python3
"""Checks the #include directives in src/ against the table of allowed edges between folders.

    includes.py [FOLDER]    FOLDER contains src/; by default the project
"""

import re
import sys
from fnmatch import fnmatchcase
from pathlib import Path

# The folders whose headers each folder may include, besides its own and `platform`, the interfaces
# that everything may use. Every folder with sources must be listed.
ALLOWED = {
    "platform": set(),
    "core": set(),
    "core/modules": set(),

    "ui/theme": {"core"},
    "ui/controls": {"core", "ui/theme"},
    "ui/list": {"core", "ui/theme", "ui/controls"},
    "ui/window": {"core", "ui/theme"},

    "clipboard": {"core"},
    "clipboard/recognition": {"clipboard"},
    "clipboard/recognition/module": {"clipboard", "clipboard/recognition", "core/modules"},
    "notes": {"core"},
    "panel": {"core"},
    "settings": {"core", "clipboard"},
    "markdown": {"core"},

    "clipboard/view": {"core", "clipboard", "panel", "ui/*"},
    "notes/view": {"core", "notes", "panel", "ui/*"},
    "panel/view": {"core", "panel", "ui/*"},
    "settings/view": {"core", "settings", "ui/*"},
    "markdown/view": {"core", "markdown", "ui/*"},
    "markdown/webengine": {"core/modules", "markdown", "markdown/view"},

    "platform/desktop": {"platform/desktop/caret"},
    "platform/desktop/caret": set(),
    "platform/selection": set(),
    "platform/wayland/connection": set(),
    "platform/wayland/clipboard": {"platform/selection", "platform/wayland/connection"},
    "platform/x11/connection": set(),
    "platform/x11/selection": {"platform/selection", "platform/x11/connection"},
    "platform/x11/windows": {"platform/x11/connection"},
    "platform/x11/keys": {"platform/selection", "platform/x11/connection",
                          "platform/x11/selection", "platform/x11/windows"},

    "app": {"core", "clipboard", "notes", "panel", "settings", "markdown", "*/view", "ui/*"},
}

# The sources of src/app that choose the back-ends; no others may include one.
COMPOSITION_ROOT = re.compile(r"app/(main|X11Desktop|FreedesktopServices|SessionClipboard)\.(cpp|h)")
BACK_END = re.compile(r"platform/.+")

# Records only hold data. Services build on records, never the other way round.
RECORD = re.compile(r"(Store|Item|Manifest|Note|NoteColor|NoteFrame|Document)$")
SERVICE = re.compile(r"(ViewModel|Model|Monitor|Manager|Controller|Coordinator|Animator|Section)$")

# The folders that may use widgets.
WITH_WIDGETS = re.compile(r"ui/.+|.+/view|.+/webengine|app|platform/.+")

# Names that betray the window system.
X11_NAMES = re.compile(r"\bxcb|\bX11|\bXlib|_NET_WM|qxcb", re.IGNORECASE)

_INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


class Source:
    """A source file and what it includes: "own" headers in quotes, "foreign" ones in brackets."""

    def __init__(self, path, root):
        self.name = path.relative_to(root).as_posix()
        self.text = path.read_text(encoding="utf-8")
        found = _INCLUDE.findall(self.text)
        self.own = [name for kind, name in found if kind == '"']
        self.foreign = [name for kind, name in found if kind == "<"]
        self.is_composition_root = COMPOSITION_ROOT.fullmatch(self.name) is not None

    @property
    def folder(self):
        return folder_of(self.name)


def folder_of(name):
    return name.rpartition("/")[0]


def may_include(folder, other):
    """Whether the table lets `folder` include headers of `other`."""
    if other in (folder, "platform"):
        return True
    return any(fnmatchcase(other, allowed) for allowed in ALLOWED[folder])


def breaches(sources, names):
    """Yields one line per violation. `names` are the existing files."""
    for source in sources:
        yield from _directions(source, names)
        yield from _spelling(source)
        yield from _window_system(source)
        yield from _toolkit(source)


def _directions(source, names):
    if source.folder not in ALLOWED:
        yield f"{source.name}: the folder {source.folder} is not in the table"
        return
    for included in source.own:
        if included not in names:
            if "/" not in included and not included.endswith(".moc"):
                yield f'{source.name}: "{included}" must be given relative to src/'
            continue
        other = folder_of(included)
        if source.is_composition_root and BACK_END.fullmatch(other):
            continue
        if not may_include(source.folder, other):
            yield f"{source.name}: {source.folder} must not include {other}: {included}"
        elif _is_record(source.name) and SERVICE.search(Path(included).stem):
            yield f"{source.name}: a record must not include the service {included}"


def _is_record(name):
    return not WITH_WIDGETS.fullmatch(folder_of(name)) and bool(RECORD.search(Path(name).stem))


def _spelling(source):
    for included in source.foreign:
        if re.fullmatch(r"Q[A-Z]\w*", included):
            yield f"{source.name}: <{included}> lacks its module, as in <QtCore/...>"


def _window_system(source):
    if source.folder.startswith("platform/x11") or source.is_composition_root:
        return
    for number, line in enumerate(source.text.splitlines(), 1):
        if X11_NAMES.search(line):
            yield f"{source.name}:{number}: depends on the window system: {line.strip()}"


def _toolkit(source):
    if not WITH_WIDGETS.fullmatch(source.folder):
        for included in source.foreign:
            if included.startswith("QtWidgets"):
                yield f"{source.name}: {source.folder} must not use widgets: <{included}>"
    if not BACK_END.fullmatch(source.folder) and re.search(
            r"\bQClipboard\b|\bclipboard\(\)->", source.text):
        yield f"{source.name}: only platform/ may use QClipboard"


def cycles(edges):
    """Yields the cycles in a graph of folders, each as "a -> b -> a"."""
    done = set()

    def visit(folder, path):
        if folder in path:
            yield " -> ".join(path[path.index(folder):] + [folder])
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
