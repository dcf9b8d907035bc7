"""How a clip is made: the picture and sound sources, the usual encoder settings, and the kinds of recipe."""

import dataclasses
import pathlib
import random
import shlex
import subprocess
from typing import Callable

NUMBER_BITS = 12
TAG_BITS = 4
COLUMNS = NUMBER_BITS + TAG_BITS

X264 = "-c:v libx264 -preset veryfast -crf 28 -pix_fmt yuv420p -threads 2"
X265 = "-c:v libx265 -preset ultrafast -crf 30 -pix_fmt yuv420p -tag:v hvc1"
AAC = "-c:a aac -b:a 64k -ac 1"
MP2 = "-c:a mp2"
MP3 = "-c:a libmp3lame -b:a 64k"
WMA = "-c:a wmav2 -b:a 64k"
KEEP_TIMES = "-fps_mode passthrough"


class RecipeError(Exception):
    """A clip could not be made; the text says why."""


@dataclasses.dataclass
class Job:
    """One clip in the making: its scratch folder, the name of its file, and the clips made before it."""

    folder: pathlib.Path
    scratch: pathlib.Path
    name: str

    @property
    def output(self):
        return self.scratch / self.name

    def part(self, name):
        """An intermediate file, gone when the clip is made."""
        return self.scratch / f"part_{name}"

    def clip(self, name):
        return self.folder / name

    def products(self):
        return [path for path in self.scratch.iterdir() if not path.name.startswith("part_")]

    def ffmpeg(self, *parts):
        command = ["ffmpeg", "-hide_banner", "-nostdin", "-v", "error", "-y", *arguments(*parts)]
        done = subprocess.run(command, cwd=self.scratch, capture_output=True, text=True, errors="replace")
        if done.returncode != 0:
            raise RecipeError(done.stderr.strip().splitlines()[-1:] or f"ffmpeg failed with {done.returncode}")


@dataclasses.dataclass(frozen=True)
class Recipe:
    make: Callable[[Job], None]
    needs: tuple = ()


# --- sources -------------------------------------------------------------------------------------------------


def arguments(*parts):
    """One flat list: a text is split at blanks, a list is taken as it stands, a path is one argument."""
    flat = []
    for part in parts:
        if isinstance(part, str):
            flat += shlex.split(part)
        elif isinstance(part, pathlib.Path):
            flat.append(f"file:{part}")
        else:
            flat += part
    return flat


def box(column, strip, color, columns=1, when=""):
    """One cell of the bar code: strip 0 shows a bit, strip 1 its complement."""
    enable = f":enable='{when}'" if when else ""
    width = f"{columns}*iw/{COLUMNS}"
    return f"drawbox=x={column}*iw/{COLUMNS}:y={strip}*ih/15:w={width}:h=ih/15:c={color}:t=fill{enable}"


def bar_code(tag):
    """The filters that write every picture's number and the clip's tag into its pixels, and the number as text."""
    boxes = [box(0, 0, "black", COLUMNS), box(0, 1, "white", COLUMNS)]
    for bit in range(NUMBER_BITS):
        when = f"bitand(n,{1 << bit})"
        boxes += [box(bit, 0, "white", when=when), box(bit, 1, "black", when=when)]
    for bit in range(TAG_BITS):
        if tag >> bit & 1:
            boxes += [box(NUMBER_BITS + bit, 0, "white"), box(NUMBER_BITS + bit, 1, "black")]
    text = "drawtext=font=DejaVu Sans Mono:text='%{n}':fontsize=h/8:fontcolor=white:box=1:boxcolor=black:x=w/16:y=h/2"
    return ",".join([*boxes, text])


def generated(graph):
    return ["-f", "lavfi", "-i", graph]


def video(seconds, tag, size="320x240", rate="25", before="", after="", picture="testsrc2"):
    """A numbered video; `before` stands before the numbering (what drops, doubles or times pictures), `after` behind."""
    source = f"{picture}{':' if '=' in picture else '='}s={size}:r={rate}:d={seconds}"
    return generated(",".join(filter(None, [source, before, bar_code(tag), after])))


def sound(seconds):
    return generated(f"sine=f=440:b=4:r=44100:d={seconds}")


def interlaced(seconds, tag, size):
    return video(seconds, tag, size, rate="50", before="tinterlace=interleave_top,fps=25", after="setfield=tff")


# --- kinds of recipe -----------------------------------------------------------------------------------------


def encode(*parts):
    return Recipe(lambda job: job.ffmpeg(*parts, job.output))


def convert(source, *parts, before="", copy="-c copy"):
    """Another clip in other clothes; `before` stands before the input."""
    return Recipe(lambda job: job.ffmpeg(before, "-i", job.clip(source), copy, *parts, job.output), (source,))


def through_pipe(source, muxer):
    """Written to a pipe, where a muxer cannot go back to write its index."""

    def make(job):
        command = arguments("ffmpeg -nostdin -v error -i", job.clip(source), f"-c copy -f {muxer} -")
        done = subprocess.run(command, capture_output=True)
        if done.returncode != 0:
            raise RecipeError(done.stderr.decode(errors="replace"))
        job.output.write_bytes(done.stdout)

    return Recipe(make, (source,))


def joined(*streams, needs=()):
    """Streams made one by one and glued byte to byte. A stream is a list of parts; a text of it in braces names a
    clip to copy from."""

    def make(job):
        whole = b""
        for index, stream in enumerate(streams):
            part = job.part(f"{index}.ts")
            job.ffmpeg(*stream(job), "-f mpegts", part)
            whole += part.read_bytes()
        job.output.write_bytes(whole)

    return Recipe(make, needs)


def stream(*parts):
    return lambda job: parts


def copied_stream(source):
    return lambda job: ("-i", job.clip(source), "-c copy")


def two_steps(first, middle, second):
    """`first` encodes an intermediate file named `middle`; `second(job, file)` makes the clip of it."""

    def make(job):
        part = job.part(middle)
        job.ffmpeg(*first, part)
        second(job, part)

    return Recipe(make)


def two_pass(*parts):
    def make(job):
        for number in (1, 2):
            log = ["-passlogfile", str(job.part("log"))]
            target = "-f null -" if number == 1 else job.output
            job.ffmpeg(*parts, f"-pass {number}", log, target)

    return Recipe(make)


def slice_of(source, cut):
    """Some of another clip's bytes: `cut` takes the bytes and returns those to keep."""
    return Recipe(lambda job: job.output.write_bytes(cut(job.clip(source).read_bytes())), (source,))


def text(content):
    return Recipe(lambda job: job.output.write_text(content))


def noise(size):
    return Recipe(lambda job: job.output.write_bytes(random.Random(608).randbytes(size)))
