#!/bin/bash
# use_installed.sh PREFIX VIDEO HOME: uses an installed program as a person would, by its windows and keys, with a home of
# its own: the note of the first start, a video, a capture that is saved, the guide; a start with a video. Runs on the screen of with_display.sh.
set -euo pipefail
[ $# -eq 3 ] || { echo "usage: $0 PREFIX VIDEO HOME" >&2; exit 2; }
prefix=$1 video=$(realpath "$2") home=$3
mkdir -p "$home"
export HOME=$home
export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_RUNTIME_DIR=$HOME
chmod 700 "$HOME"
captures="$XDG_DATA_HOME/TAQ Video Capture Pro/AutoSave"
size=$(ffprobe -v error -select_streams v -show_entries stream=width,height -of csv=p=0:s=x "$video")
readonly patience=30 # seconds for each step

settings=$XDG_CONFIG_HOME/"Marlowfern Software"
mkdir -p "$settings"
printf '[Options]\nAutoSave=True\nAutoDir=True\nOpThumb=2\nFadeOuts=False\n' > "$settings/TAQ Video Capture Pro v2.1.conf"

program=
give_up()
{
    echo "use_installed.sh: $1" >&2
    [ -z "${LOOK:-}" ] || import -window root "$LOOK"
    exit 1
}
trap '[ -z "$program" ] || kill "$program" 2> /dev/null || true' EXIT

# until_true WHAT COMMAND…: tries the command until it goes well.
until_true()
{
    local what=$1 end=$((SECONDS + patience))
    shift
    until "$@" > /dev/null 2>&1; do
        [ $SECONDS -lt $end ] || give_up "$what"
        kill -0 "$program" 2> /dev/null || give_up "the program ended before this: $what"
        sleep 0.1
    done
}
is_other_than() { ! is_active "$1"; }
save_capture()
{
    xdotool key s
    xdotool key ctrl+s
    sleep 0.5
    [ -s "$1" ]
}
is_active() { [ "$(xdotool getactivewindow getwindowname)" = "$1" ]; }

"$prefix/bin/taq" &
program=$!
until_true "the first start tells where captures are kept" is_active "Captures"
xdotool key Return
until_true "the frame stands" is_active "TAQ Pro v2.1"
xdotool key ctrl+o
until_true "the open dialog stands" is_other_than "TAQ Pro v2.1"
xdotool type --delay 5 "$video"
xdotool key Return
until_true "the dialog is gone" is_active "TAQ Pro v2.1"
until_true "a capture is saved in $captures" save_capture "$captures/auto1.bmp"
taken=$(identify -format '%wx%h' "$captures/auto1.bmp")
[ "$taken" = "$size" ] || give_up "the capture is $taken, the video $size"
xdotool key F1
until_true "the guide opens" is_active "Help"

kill "$program"
wait "$program" || true
rm "$captures"/*
"$prefix/bin/taq" "$video" &
program=$!
until_true "a capture of the video given at the start is saved" save_capture "$captures/auto1.bmp"
taken=$(identify -format '%wx%h' "$captures/auto1.bmp")
[ "$taken" = "$size" ] || give_up "the capture is $taken, the video given at the start $size"

[ ! -e "$prefix/bin/AutoSave" ] || give_up "something was made among the system's programs"
echo "saved $captures/auto1.bmp, $taken"
