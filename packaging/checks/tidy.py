#!/usr/bin/python3
"""Runs clang-tidy in parallel over the translation units of build/dev and caches clean results.

It checks unity sources as a whole, just as they are compiled: most of the time goes into parsing Qt
headers, which is then done once per unity source.

Tests are checked only on request. They are compiled with all warnings, and checking them as well
would double the time.

A unit is checked again when one of its sources, a project header that it includes, its flags, the
configuration or clang-tidy itself has changed.

    tidy.py [PATH...]    check the sources below these paths; by default src and bench
"""

import hashlib
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
BUILD = PROJECT / "build/dev"
CACHE = PROJECT / "build/lint"


def commands():
    """Yields the compile commands of project sources and of unity sources made of them."""
    for command in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
        if sources(Path(command["file"])):
            yield command


def sources(path):
    """The project sources that a translation unit consists of; none for other generated files."""
    if path.parent.name == "Unity":
        included = re.findall(r'^#include "([^"]+)"', path.read_text(encoding="utf-8"), re.MULTILINE)
        return [Path(name) for name in included if is_ours(Path(name))]
    return [path] if is_ours(path) else []


def is_ours(path):
    return PROJECT in path.parents and BUILD not in path.parents


def dependencies():
    """The project files that each object file was compiled from."""
    listed = subprocess.run(["ninja", "-C", BUILD, "-t", "deps"], check=True,
                            capture_output=True, text=True).stdout
    found, current = {}, None
    for line in listed.splitlines():
        if match := re.match(r"(\S.*): #deps", line):
            current = found.setdefault(match[1], [])
        elif line.startswith("    "):
            path = (BUILD / line.strip()).resolve()
            if is_ours(path):
                current.append(path)
    return found


def object_file(command):
    match = re.search(r" -o (\S+)", command["command"])
    return match[1] if match else ""


def fingerprint(command, files, common):
    digest = hashlib.sha256(common)
    digest.update(command["command"].encode())
    for path in sorted({Path(command["file"]), *files}):
        digest.update(path.read_bytes())
    return digest.hexdigest()


def complaints(path):
    """The output of clang-tidy for a source; empty if it is clean."""
    result = subprocess.run(
        ["clang-tidy", "--quiet", "--extra-arg=-Wno-unknown-warning-option", "-p", BUILD, path],
        capture_output=True, text=True, cwd=PROJECT)
    if result.returncode == 0:
        return ""
    return result.stdout.replace(f"{PROJECT}/", "") or result.stderr


def main():
    wanted = [Path(argument).resolve() for argument in sys.argv[1:]] or [
        PROJECT / "src", PROJECT / "bench"]
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    common = version + (PROJECT / ".clang-tidy").read_bytes()
    files_of = dependencies()
    CACHE.mkdir(parents=True, exist_ok=True)

    def check(command):
        path = Path(command["file"])
        files = files_of.get(object_file(command), [])
        clean = CACHE / fingerprint(command, files, common)
        if clean.exists():
            return ""
        found = complaints(path)
        if not found:
            clean.touch()
        return found

    chosen = [command for command in commands()
              if any(w == source or w in source.parents
                     for w in wanted for source in sources(Path(command["file"])))]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = sorted({text for text in pool.map(check, chosen) if text})
    for text in found:
        print(text)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
