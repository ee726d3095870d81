#!/usr/bin/python3
"""Runs clang-tidy over what build/dev compiles, on every core; units found clean are remembered.

The build compiles several sources as one unit, and so does this: what takes the time is looking
through the headers of the toolkit, which then is done once per unit.

Tests are compiled with every warning and fail by themselves; looking at them too would double the
time, so they are looked at when they are named.

A unit is looked at again when one of its sources, a header of ours that it includes, its flags, the
checks or the tool have changed.

    tidy.py [PATH...]    the sources below these paths; by default src and bench
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
REMEMBERED = PROJECT / "build/lint"


def commands():
    """The compile commands of our own sources and of units of them; other generated sources are
    left out."""
    for command in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
        if sources(Path(command["file"])):
            yield command


def sources(path):
    """The sources of ours that a compiled file consists of."""
    if path.parent.name == "Unity":
        included = re.findall(r'^#include "([^"]+)"', path.read_text(encoding="utf-8"), re.MULTILINE)
        return [Path(name) for name in included if is_ours(Path(name))]
    return [path] if is_ours(path) else []


def is_ours(path):
    return PROJECT in path.parents and BUILD not in path.parents


def dependencies():
    """The files of ours that each source was compiled from, by the object file that came of it."""
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
    """What clang-tidy says about a source: nothing when it is clean."""
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
    made_from = dependencies()
    REMEMBERED.mkdir(parents=True, exist_ok=True)

    def look_at(command):
        path = Path(command["file"])
        files = made_from.get(object_file(command), [])
        clean = REMEMBERED / fingerprint(command, files, common)
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
        found = sorted({text for text in pool.map(look_at, chosen) if text})
    for text in found:
        print(text)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
