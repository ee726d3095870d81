#!/usr/bin/python3
"""Checks that every source is listed in a CMakeLists.txt: an unlisted test would never run.

    listed.py [FOLDER]    by default the project
"""

import re
import sys
from pathlib import Path

FOLDERS = ("src", "tests", "bench")


def missing(project):
    """Yields the sources below FOLDERS that no CMakeLists.txt mentions."""
    known = set()
    for folder in FOLDERS:
        for listing in (Path(project) / folder).rglob("CMakeLists.txt"):
            for word in re.findall(r"[\w./]+", listing.read_text(encoding="utf-8")):
                known.add((listing.parent / word).resolve())
                known.add((listing.parent / f"{word}.cpp").resolve())
    for folder in FOLDERS:
        for source in sorted((Path(project) / folder).rglob("*.cpp")):
            if source.resolve() not in known:
                yield source.relative_to(project).as_posix()


def main():
    project = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = list(missing(project))
    for name in found:
        print(f"{name}: not listed in any CMakeLists.txt")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
