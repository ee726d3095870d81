#!/usr/bin/python3
"""Checks for words that do not belong in the sources, and for files that have grown too long."""

import re
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]

# Maximum number of lines: the size to aim for plus a tenth. Tests may be longer: they are lists of
# cases, which nobody reads from top to bottom.
MAX_LINES = {".cpp": 330, ".h": 165, ".py": 330}
MAX_TEST_LINES = 600

SOURCE = (".cpp", ".h", ".py", ".txt", ".cmake", ".md", ".yml", ".sh", "")

WORDS = [
    (re.compile(r"\b(TODO|FIXME|XXX|HACK)\b"), SOURCE, "do it now or open an issue"),
    (re.compile(r"""(?<![\w.}~$/-])/(home|root|work|Users)/"""), SOURCE, "a path on your machine"),
    (re.compile(r"\bqDebug\(|std::cout|std::cerr"), (".cpp", ".h"), "debug output"),
    (re.compile(r"\b(QTest::qSleep|QThread::[mu]?sleep|QTest::qWait)\([^/]*$"), (".cpp", ".h"),
     "wait for a condition, or explain the delay in a comment on this line"),
    (re.compile(r"using namespace std;"), (".cpp", ".h"), "name what you use"),
]


def tracked_files():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                            cwd=PROJECT, check=True, capture_output=True, text=True).stdout
    return [PROJECT / name for name in listed.splitlines()]


def complaints(name, suffix, text):
    lines = text.splitlines()
    limit = MAX_LINES.get(suffix, len(lines))
    if Path(name).name.startswith("Test"):
        limit = MAX_TEST_LINES
    if len(lines) > limit:
        yield f"{name}: {len(lines)} lines, more than the {limit} allowed; split it"
    for number, line in enumerate(lines, 1):
        for pattern, suffixes, reason in WORDS:
            if suffix in suffixes and (match := pattern.search(line)):
                yield f"{name}:{number}: {match[0]!r}: {reason}"


def main():
    found = []
    for path in tracked_files():
        if path.is_file() and path.suffix in SOURCE and path != Path(__file__).resolve():
            name = path.relative_to(PROJECT).as_posix()
            text = path.read_text(encoding="utf-8", errors="replace")
            found += complaints(name, path.suffix, text)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
