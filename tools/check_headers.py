#!/usr/bin/env python3
"""check_headers.py BUILD: every header compiles alone. A header with a source of its own name is included first there,
so only the others are compiled here, each with the flags of a source of its room and without precompiled headers."""

import concurrent.futures
import os
import pathlib
import shlex
import subprocess
import sys

import sources
from check_tidy import ROOT, program_commands

KEPT = ("-D", "-I", "-std=", "-f", "-W")


def flags_by_room(build):
    """The preprocessor's and the language's flags of each folder."""
    flags = {}
    for entry in program_commands(build):
        words = shlex.split(entry["command"])
        system = [part for word, path in zip(words, words[1:]) if word == "-isystem" for part in (word, path)]
        folder = pathlib.Path(entry["file"]).relative_to(ROOT).parent
        flags.setdefault(str(folder), [word for word in words if word.startswith(KEPT)] + system)
    return flags


def complaint(header, flags):
    command = ["c++", "-fsyntax-only", *flags, "-x", "c++", "-"]
    return subprocess.run(command, input=f'#include "{header}"\n', capture_output=True, text=True).stderr


def own_header_stands_first(source):
    first = next(iter(sources.includes(ROOT, source)), None)
    return first and first.target and first.target.stem == source.stem


def main():
    flags = flags_by_room(pathlib.Path(sys.argv[1]))
    files = [file for file in sources.files(ROOT) if str(file.parent) in flags or file.parts[0] == "base"]
    flags.setdefault("base", next(iter(flags.values())))  # a folder of headers alone
    covered = {file.with_suffix(".h") for file in files if file.suffix == ".cpp" and own_header_stands_first(file)}
    headers = [file for file in files if file.suffix == ".h" and file not in covered]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        said = list(filter(None, workers.map(lambda header: complaint(header, flags[str(header.parent)]), headers)))
    print("\n".join(said + [f"{len(headers)} headers compiled alone, {len(said)} with complaints"]))
    return 1 if said or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
