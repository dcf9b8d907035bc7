#!/usr/bin/env python3
"""check_tidy.py BUILD [FILE…]: clang-tidy over the program's sources with the commands of the build folder. What passed
before and has not changed since, with all it includes, is not looked at again (.cache/tidy).

The precompiled headers are left out: every source then parses only what it includes, which is quicker than all of Qt
and shows a missing include. Tests are left to the compiler's warnings: GoogleTest's templates would double the time.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

import sources

ROOT = pathlib.Path(__file__).resolve().parent.parent
PASSED = ROOT / ".cache" / "tidy"
PRECOMPILED = re.compile(r" -Winvalid-pch| -include \S*cmake_pch\S*")
LAUNCHER = re.compile(r"^\S*ccache ")


def is_program_source(path):
    return path.is_relative_to(ROOT) and path.relative_to(ROOT).parts[0] not in ("tests", "bench", "build")


def program_commands(build):
    """The build's own commands for our sources, each source once."""
    commands = json.loads((build / "compile_commands.json").read_text())
    chosen = {}
    for entry in commands:
        if is_program_source(pathlib.Path(entry["file"])):
            command = LAUNCHER.sub("", PRECOMPILED.sub("", entry["command"]))
            chosen.setdefault(entry["file"], {**entry, "command": command})
    return list(chosen.values())


def fingerprint(entry, common):
    digest = hashlib.sha256(common + entry["command"].encode())
    for file in sources.closure(ROOT, pathlib.PurePosixPath(pathlib.Path(entry["file"]).relative_to(ROOT))):
        digest.update(str(file).encode() + b"\0" + (ROOT / file).read_bytes())
    return digest.hexdigest()


def complaint(entry, database, common):
    """What clang-tidy says of one source; nothing when it is content."""
    stamp = PASSED / fingerprint(entry, common)
    if stamp.exists():
        return ""
    command = ["clang-tidy", "--quiet", "-p", str(database), "--extra-arg=-Wno-unknown-warning-option", entry["file"]]
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode == 0:
        stamp.touch()
        return ""
    return done.stdout or done.stderr


def main():
    build = pathlib.Path(sys.argv[1])
    wanted = sys.argv[2:]
    entries = [e for e in program_commands(build) if not wanted or any(e["file"].endswith(name) for name in wanted)]
    database = build / "tidy"
    database.mkdir(exist_ok=True)
    (database / "compile_commands.json").write_text(json.dumps(entries))
    PASSED.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    common = version + (ROOT / ".clang-tidy").read_bytes()

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        said = list(filter(None, workers.map(lambda entry: complaint(entry, database, common), entries)))
    print("\n".join(said + [f"{len(entries)} sources looked at, {len(said)} with complaints"]))
    return 1 if said or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
