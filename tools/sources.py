"""The tree's own C++ files and what they include."""

import dataclasses
import pathlib
import re

SUFFIXES = {".cpp", ".h"}
NOT_OURS = re.compile(r"build.*|TAQ|\..*")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


@dataclasses.dataclass(frozen=True)
class Include:
    line: int
    name: str
    target: pathlib.PurePosixPath | None  # within the tree; None for a file of elsewhere


def files(root):
    """All C++ files below the root, relative to it, without what was built."""
    for path in sorted(root.rglob("*")):
        below = path.relative_to(root)
        if path.suffix in SUFFIXES and not NOT_OURS.fullmatch(below.parts[0]):
            yield pathlib.PurePosixPath(below)


def includes(root, file):
    for number, line in enumerate((root / file).read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield Include(number, found[2], resolve(root, file, found[2]) if found[1] == '"' else None)


def resolve(root, file, name):
    """An include in quotes is looked for beside the file, then below the root."""
    for place in (file.parent / name, pathlib.PurePosixPath(name)):
        if (root / place).is_file():
            return place
    return None


def closure(root, file):
    """The file and everything of the tree that it includes, directly or not."""
    seen, waiting = set(), [file]
    while waiting:
        current = waiting.pop()
        if current in seen:
            continue
        seen.add(current)
        waiting += [include.target for include in includes(root, current) if include.target]
    return sorted(seen)
