#!/usr/bin/env python3
"""check_layers.py [ROOT]: the floors of the house. A room includes only what stands on a floor below its own; a foreign
library ends at its room; a colour is named in the style file only."""

import fnmatch
import pathlib
import re
import sys

import sources

# The first pattern that fits a file tells its room. Rooms of one floor do not know each other.
ROOMS = (
    # file pattern      room            floor
    ("main.cpp",        "the program",  7),
    ("Program.*",       "the program",  7),
    ("frame/*",         "frame",        6),
    ("video/ltmmPlay.*", "the ground",  1),
    ("app/*",           "the ground",   1),
    ("media/player/*",  "media/player", 2),
    ("text/*",          "text",         2),
    ("capture/*",       "capture",      3),
    ("print/*",         "print",        3),
    ("viewers/*",       "viewers",      4),
    ("edit/*",          "edit",         4),
    ("video/*",         "video",        5),
    ("settingsui/*",    "settingsui",   5),
    ("toolkit/*",       "toolkit",      0),
    ("media/*",         "media",        0),
    ("imaging/*",       "imaging",      0),
    ("desktop/*",       "desktop",      0),
    ("base/*",          "base",         -1),
)
FREE = ("tests", "bench", "resources")  # may look at every room; no room may look at them

FOREIGN = (
    # what is included                  the room that may
    (re.compile(r"lib(av|sw)[a-z]+/"),  "media"),
    (re.compile(r"pulse/"),             "media"),
    (re.compile(r"opencv2/"),           "imaging"),
    (re.compile(r"(?i)magick(\+\+)?[./]"), "imaging"),
    (re.compile(r"seccomp\.h"),           "imaging"),
    (re.compile(r"cups/"),              "desktop"),
)

COLOUR = re.compile(r'"#(?:[0-9a-fA-F]{3,4}|[0-9a-fA-F]{6}|[0-9a-fA-F]{8})"|\bQColor\s*[({]\s*(?:\d|"|u"|QLatin1)')
STYLE = "toolkit/Style.*"


def room_of(file):
    """(room, floor), or None for a file that stands in no room."""
    for pattern, room, floor in ROOMS:
        if fnmatch.fnmatchcase(str(file), pattern):
            return room, floor
    return None


def is_free(file):
    return file.parts[0] in FREE


def may_include(file, target):
    if is_free(target):
        return False
    here, there = room_of(file), room_of(target)
    return here and there and (here[0] == there[0] or here[1] > there[1])


def folder(file):
    """How a sentence calls the room of a file: its folder, or the file itself where the folder holds two floors."""
    shared = len(file.parts) == 1 or room_of(file) and room_of(file)[0] == "the ground"
    return str(file) if shared else f"{file.parent}/"


def layer_faults(root, file):
    if is_free(file):
        return
    if not room_of(file):
        yield f"{file}: stands in no room; tools/check_layers.py lists them"
        return
    for include in sources.includes(root, file):
        if include.target and not may_include(file, include.target):
            yield f"{file}:{include.line}: {folder(file)} may not include {include.target}"


def owner(file):
    """The room of a file, or the room that a test mirrors."""
    return file.parts[1] if file.parts[0] == "tests" else file.parts[0]


def foreign_faults(root, file):
    for include in sources.includes(root, file):
        for pattern, room in FOREIGN:
            if pattern.match(include.name) and owner(file) != room and file.parts[0] != "bench":
                yield f"{file}:{include.line}: {include.name} ends at {room}/"


def colour_faults(root, file):
    if is_free(file) or fnmatch.fnmatchcase(str(file), STYLE):
        return
    for number, line in enumerate((root / file).read_text(encoding="utf-8").splitlines(), 1):
        found = COLOUR.search(line)
        if found:
            yield f"{file}:{number}: the colour {found[0]} belongs into toolkit/Style"


def faults(root):
    for file in sources.files(root):
        for check in (layer_faults, foreign_faults, colour_faults):
            yield from check(root, file)


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent)
    found = list(faults(root))
    print("\n".join(found + [f"{len(found)} faults in the floors"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
