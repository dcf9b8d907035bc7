#!/bin/bash
# make_clips.sh OUTDIR: makes the big clips that the benchmarks measure on, about 0.9 GB. Every picture carries its
# number as a bar code, so that a benchmark can count wrong pictures. A clip that is there stays.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=${1:?"usage: $0 OUTDIR"}
mkdir -p "$out"

bar_code()
{
    python3 -B -c "import sys; sys.path.insert(0, sys.argv[1]); import recipes; print(recipes.bar_code(1))" \
        "$here/../tests/clips"
}
numbers=$(bar_code)

# make NAME SIZE FRAMES ENCODER…
make()
{
    local name=$1 size=$2 frames=$3
    shift 3
    [ -s "$out/$name" ] && { echo "$name is there"; return; }
    ffmpeg -hide_banner -nostdin -v error -y -f lavfi -i "testsrc2=s=$size:r=25,noise=alls=12:allf=t,$numbers" \
        -frames:v "$frames" "$@" "$out/.half-$name"
    mv "$out/.half-$name" "$out/$name"
    echo "$name made: $(stat -c %s "$out/$name") bytes"
}

h264=(-c:v libx264 -preset veryfast -pix_fmt yuv420p -b:v 8M -maxrate 8M -bufsize 16M -bf 3)
make big_gop50.mp4 1920x1080 500 "${h264[@]}" -g 50 -x264-params scenecut=0
make big_gop250.mp4 1920x1080 500 "${h264[@]}" -g 250 -x264-params scenecut=0
make big_mpeg4.avi 1920x1080 500 -c:v mpeg4 -vtag XVID -b:v 8M -g 50 -bf 2
mpeg2=(-c:v mpeg2video -pix_fmt yuv420p -b:v 6M -maxrate 8M -bufsize 1835k -g 12 -bf 2 -f vob)
make small_gop50.mp4 320x180 500 -c:v libx264 -preset veryfast -pix_fmt yuv420p -crf 38 -g 50 -bf 3 -x264-params scenecut=0
make sd_mpeg2.mpg 720x576 500 "${mpeg2[@]}"
make sd_mpeg2_long.mpg 720x576 3000 "${mpeg2[@]}"

# copy NAME FROM OPTIONS…: the packets of a clip in another file
copy()
{
    local name=$1 from=$2
    shift 2
    [ -s "$out/$name" ] && { echo "$name is there"; return; }
    ffmpeg -hide_banner -nostdin -v fatal -y "$@" -i "$out/$from" -c copy "$out/.half-$name"
    mv "$out/.half-$name" "$out/$name"
    echo "$name made: $(stat -c %s "$out/$name") bytes"
}

copy play_minute.mp4 big_gop50.mp4 -itsscale 0.83333333 -stream_loop 3
copy hours.mp4 small_gop50.mp4 -stream_loop 359
copy long.mp4 big_gop50.mp4 -stream_loop 9
copy long.ts big_gop50.mp4 -stream_loop 9
copy long.avi big_mpeg4.avi -fflags +genpts -stream_loop 9
copy long.mpg sd_mpeg2.mpg -stream_loop 9
