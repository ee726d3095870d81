#!/usr/bin/python3
"""Fails on words that do not belong into the sources, and on files that have grown too long."""

import re
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]

# Lines a file may have: the size to write for, and a tenth more. A test is a list of cases that
# nobody reads as a whole, so it may be longer.
LONGEST = {".cpp": 330, ".h": 165, ".py": 330}
LONGEST_TEST = 600

SOURCE = (".cpp", ".h", ".py", ".txt", ".cmake", ".md", ".yml", ".sh", "")

WORDS = [
    (re.compile(r"\b(TODO|FIXME|XXX|HACK)\b"), SOURCE, "do it or open an issue"),
    (re.compile(r"""(?<![\w.}~$/-])/(home|root|work|Users)/"""), SOURCE, "a path of one machine"),
    (re.compile(r"\bqDebug\(|std::cout|std::cerr"), (".cpp", ".h"), "left from a hunt"),
    (re.compile(r"\b(QTest::qSleep|QThread::[mu]?sleep|QTest::qWait)\([^/]*$"), (".cpp", ".h"),
     "wait for a condition, or say beside it what is measured"),
    (re.compile(r"using namespace std;"), (".cpp", ".h"), "name what is used"),
]


def tracked_files():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                            cwd=PROJECT, check=True, capture_output=True, text=True).stdout
    return [PROJECT / name for name in listed.splitlines()]


def complaints(name, suffix, text):
    lines = text.splitlines()
    longest = LONGEST.get(suffix, len(lines))
    if Path(name).name.startswith("Test"):
        longest = LONGEST_TEST
    if len(lines) > longest:
        yield f"{name}: {len(lines)} lines are too many for one job"
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
