#!/usr/bin/python3
"""Prints the line coverage of each folder below src, as build/coverage has recorded it."""

import json
import os
import subprocess
import sys
from collections import Counter
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]


def covered_files():
    """The summary of each source file, with its name relative to the project."""
    summary = subprocess.run(
        ["gcovr", "--root", PROJECT, "--filter", f"{PROJECT}/src/", "--json-summary",
         "-j", str(os.cpu_count()), PROJECT / "build/coverage"],
        check=True, capture_output=True, text=True).stdout
    return json.loads(summary)["files"]


def print_row(name, covered, total):
    print(f"{name:32} {covered:6} / {total:6} {100 * covered / total:6.1f} %")


def main():
    covered, total = Counter(), Counter()
    for file in covered_files():
        folder = str(Path(file["filename"]).parent)
        covered[folder] += file["line_covered"]
        total[folder] += file["line_total"]
    if not total:
        sys.exit("build/coverage has recorded nothing")
    for folder in sorted(folder for folder in total if total[folder]):
        print_row(folder, covered[folder], total[folder])
    print_row("all", covered.total(), total.total())


if __name__ == "__main__":
    main()
