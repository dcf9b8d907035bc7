#!/usr/bin/env python3
"""check_clips.py FOLDER [NAME…]: decodes the clips with the ffmpeg command line and compares the numbers and tags in
their pixels with MANIFEST.tsv. For a clip of expected damage only the number of pictures and the readable ends count."""

import concurrent.futures
import csv
import os
import pathlib
import subprocess
import sys

import catalogue
from recipes import COLUMNS, NUMBER_BITS

DAMAGED = None
LOST_AT_MOST = 1  # pictures of a damaged clip that the decoder does not give; they keep their numbers in the program


def picture_size(path):
    command = ["ffprobe", "-v", "error", "-select_streams", "V:0", "-show_entries", "stream=width,height",
               "-of", "csv=p=0:nk=1", f"file:{path}"]
    fields = subprocess.run(command, capture_output=True, text=True).stdout.split("\n")[0].strip(",").split(",")
    return tuple(map(int, fields[:2])) if len(fields) >= 2 else None


def read_bar_code(grey, width, height):
    number = tag = 0
    for column in range(COLUMNS):
        x = (2 * column + 1) * width // (2 * COLUMNS)
        bit, complement = (grey[y * width + x] for y in (height // 30, 3 * height // 30))
        if abs(bit - complement) < 64:
            return DAMAGED
        if bit > complement and column < NUMBER_BITS:
            number |= 1 << column
        elif bit > complement:
            tag |= 1 << (column - NUMBER_BITS)
    return number, tag


def decode(path):
    """(number, tag) of every picture; nothing when the file holds no video."""
    size = picture_size(path)
    if not size:
        return []
    scale = f"scale={size[0]}:{size[1]}"
    command = ["ffmpeg", "-nostdin", "-v", "error", "-noautorotate", "-i", f"file:{path}", "-map", "0:V:0",
               "-vf", scale, "-fps_mode", "passthrough", "-f", "rawvideo", "-pix_fmt", "gray", "-"]
    raw = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    step = size[0] * size[1]
    return [read_bar_code(raw[at:at + step], *size) for at in range(0, len(raw) - step + 1, step)]


def expected_numbers(text):
    """One entry a picture: a number, or DAMAGED where anything may stand."""
    numbers = []
    for part in filter(None, text.split(",")):
        if part.startswith("?"):
            numbers += [DAMAGED] * int(part[1:] or 1)
        else:
            first, _, last = part.partition("-")
            numbers += range(int(first), int(last or first) + 1)
    return numbers


def fault(row, pictures):
    """What is wrong with a clip's pictures, or an empty text."""
    expected = expected_numbers(row["numbers"])
    lost = int(row["pictures"]) - len(pictures)
    if not 0 <= lost <= (LOST_AT_MOST if DAMAGED in expected else 0):
        return f"{len(pictures)} pictures instead of {row['pictures']}"
    for _ in range(lost):
        expected.remove(DAMAGED)
    for place, (number, picture) in enumerate(zip(expected, pictures)):
        if number is not DAMAGED and (picture is DAMAGED or picture[0] != number):
            return f"picture {place} shows {picture} instead of {number}"
    certain = [picture for number, picture in zip(expected, pictures) if number is not DAMAGED]
    tags = ",".join(dict.fromkeys(str(tag) for _, tag in certain))
    return "" if tags == row["tags"] else f"tags {tags} instead of {row['tags']}"


def main():
    folder = pathlib.Path(sys.argv[1])
    names = sys.argv[2:]
    with open(folder / "MANIFEST.tsv", encoding="utf-8", newline="") as manifest:
        rows = list(csv.DictReader(manifest, delimiter="\t", quoting=csv.QUOTE_NONE))
    missing = {clip.name for clip in catalogue.CLIPS} - {row["name"] for row in rows}
    rows = [row for row in rows if not names or row["name"] in names]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        found = list(workers.map(lambda row: fault(row, decode(folder / row["name"])), rows))
    faults = [f"{name}: not made" for name in sorted(missing) if not names or name in names]
    faults += [f"{row['name']}: {what}" for row, what in zip(rows, found) if what]
    print("\n".join(faults + [f"{len(rows)} clips checked, {len(faults)} differ from the manifest"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
