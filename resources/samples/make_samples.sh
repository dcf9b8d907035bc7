#!/bin/bash
# make_samples.sh [OUTDIR]: makes the sample videos that come with the program: scenes painted by Scenes.cpp, each with a
# sound of its own. The made clips are in the tree; run this to change them.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here}
readonly seconds=10
scenes=$(mktemp)
trap 'rm -f "$scenes"' EXIT
c++ -std=c++20 -O2 -Wall -Wextra -o "$scenes" "$here/Scenes.cpp"

# notes SPEED LIST: one plucked note after another, the list in semitones above A3.
notes()
{
    local speed=$1 step=0 pitch="0" note
    shift
    local count=$#
    for note in "$@"; do
        pitch+="+eq(floor(mod(t*$speed,$count)),$step)*$note"
        step=$((step + 1))
    done
    echo "220*pow(2,($pitch)/12)"
}

chord() # AMPLITUDE FREQUENCY…: a soft pad whose voices swell at their own pace
{
    local amplitude=$1 sum="0" voice=1 frequency
    shift
    for frequency in "$@"; do
        sum+="+(0.6+0.4*sin(2*PI*t*0.0$((5 + 3 * voice))+$voice))*(sin(2*PI*$frequency*t)+0.3*sin(4*PI*$frequency*t))"
        voice=$((voice + 1))
    done
    echo "$amplitude*($sum)"
}

make() # NAME SOUND ENCODER…
{
    local name=$1 sound=$2
    shift 2
    "$scenes" "${name%.*}" "$seconds" | ffmpeg -hide_banner -v error -y -f rawvideo -pix_fmt rgb24 -s 640x360 -r 25 -i - \
        -f lavfi -i "$sound" -t "$seconds" -pix_fmt yuv420p "$@" -metadata title="${name%.*}" "$out/$name"
    echo "$name: $(stat -c %s "$out/$name") bytes"
}

fades="afade=t=in:d=1.2,afade=t=out:st=8.3:d=1.7"

make Aurora.avi \
    "aevalsrc='$(chord 0.13 110 164.81 220 277.18 329.63 493.88)':s=44100,aecho=0.8:0.7:180|310:0.35|0.25,$fades" \
    -c:v mpeg4 -vtag XVID -b:v 900k -g 50 -bf 2 -c:a libmp3lame -b:a 96k -ac 2

surf="anoisesrc=c=brown:r=44100:a=0.5:seed=7,tremolo=f=0.17:d=0.75,lowpass=f=900[surf]"
pad="aevalsrc='$(chord 0.05 130.81 196 246.94 329.63)':s=44100[pad]"
make Sunset.mpg "$surf;$pad;[surf][pad]amix=inputs=2:normalize=0,$fades" \
    -c:v mpeg2video -b:v 1100k -maxrate 2500k -bufsize 1835k -g 15 -bf 2 -c:a mp2 -b:a 112k -ac 2 -f vob

melody=$(notes 2.5 0 7 12 16 14 12 7 9 5 9 12 17 16 12 9 7)
pluck="0.5*exp(-3.2*mod(t*2.5,1))*min(1,60*mod(t*2.5,1))*(sin(2*PI*t*$melody)+0.25*sin(4*PI*t*$melody))"
make Balloons.wmv \
    "aevalsrc='$pluck+$(chord 0.045 110 220 277.18)':s=44100,aecho=0.8:0.6:240:0.3,$fades" \
    -c:v wmv2 -b:v 900k -g 50 -c:a wmav2 -b:a 96k -ac 2
