"""Makes the clips of the catalogue that are missing or older than these scripts, on all processors at once."""

import argparse
import concurrent.futures
import os
import pathlib
import re
import shutil
import sys
import tempfile

import catalogue
from recipes import Job, RecipeError

SCRIPTS = [pathlib.Path(__file__).with_name(name) for name in ("catalogue.py", "recipes.py", "streams.py")]
COLUMNS = ("name", "pictures", "numbers", "tags", "property")


def chosen(clips, pattern):
    """The clips with a matching name and everything they are made of, in the catalogue's order."""
    wanted = {clip.name for clip in clips if re.search(pattern, clip.name)}
    for clip in reversed(clips):
        if clip.name in wanted:
            wanted.update(clip.recipe.needs)
    return [clip for clip in clips if clip.name in wanted]


def make(clip, folder):
    """Makes one clip in a scratch folder; a name in the clips' folder never holds half a file."""
    target = folder / clip.name
    target.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix=".making-", dir=folder) as scratch:
        job = Job(folder, pathlib.Path(scratch), target.name)
        clip.recipe.make(job)
        for product in job.products():
            os.replace(product, target.parent / product.name)
    os.utime(target)


def make_all(clips, folder, newest_script):
    """Returns the number of clips made and the failures as texts. A clip waits for the clips that it is made of,
    which stand before it in the catalogue."""
    started = {}

    def bring_up_to_date(clip):
        remade = any([started[need].result() for need in clip.recipe.needs])
        target = folder / clip.name
        if not remade and target.exists() and target.stat().st_mtime >= newest_script:
            return False
        make(clip, folder)
        return True

    made, failures = 0, []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        for clip in clips:
            started[clip.name] = workers.submit(bring_up_to_date, clip)
        for name, work in started.items():
            try:
                made += work.result()
            except RecipeError as error:
                failures.append(f"{name}: {error}")
    return made, failures


def write_manifest(folder):
    rows = [clip.manifest_row() for clip in catalogue.CLIPS if (folder / clip.name).exists()]
    text = "\n".join("\t".join(row) for row in [COLUMNS, *rows]) + "\n"
    fresh = folder / "MANIFEST.tsv.new"
    fresh.write_text(text, encoding="utf-8")
    os.replace(fresh, folder / "MANIFEST.tsv")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--only", default="")
    options = parser.parse_args()
    folder = options.folder.resolve()

    for left_behind in folder.glob(".making-*"):
        shutil.rmtree(left_behind)
    clips = chosen(catalogue.CLIPS, options.only)
    made, failures = make_all(clips, folder, max(script.stat().st_mtime for script in SCRIPTS))
    write_manifest(folder)
    print(f"{made} clips made, {len(clips) - made - len(failures)} were up to date, in {folder}")
    for failure in failures:
        print(f"not made: {failure}", file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
