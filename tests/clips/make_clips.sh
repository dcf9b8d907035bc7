#!/bin/bash
# make_clips.sh OUTDIR: makes the test clips (catalogue.py) and their MANIFEST.tsv; what is up to date stays.
# ONLY=regex makes the clips with a matching name and those they are made of.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=${1:?"usage: $0 OUTDIR"}

for program in ffmpeg python3 flock; do
    command -v "$program" > /dev/null || { echo "$0 needs $program: run tools/install_packages.sh" >&2; exit 1; }
done
mkdir -p "$out"
exec flock "$out/.lock" python3 -B "$here/make_clips.py" "$out" ${ONLY:+--only "$ONLY"}
