#!/bin/bash
# The private screen: it is managed, passes the exit code on, and leaves nothing behind, also when it is interrupted.
set -uo pipefail
with_display=$(cd "$(dirname "$0")/../.." && pwd)/tools/with_display.sh
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
faults=0

expect()
{
    local rule=$1
    shift
    "$@" || { echo "fault: $rule"; faults=$((faults + 1)); }
}

is_gone() { ! pgrep -r R,S,D -f "$1" > /dev/null; }

"$with_display" sh -c "echo \$DISPLAY > '$scratch/display'; xprop -root > '$scratch/root'; exit 7" 2> /dev/null
expect "the exit code is the program's" [ $? -eq 7 ]
expect "a window manager runs before the program" grep -q '_NET_SUPPORTING_WM_CHECK(WINDOW): window id' "$scratch/root"
number=$(cut -d: -f2 "$scratch/display")
expect "the screen's lock is gone" [ ! -e "/tmp/.X$number-lock" ]

mark="sleep 31$$"
TMPDIR=$scratch "$with_display" sh -c "touch '$scratch/runs'; $mark & $mark" 2> /dev/null &
script=$!
until [ -e "$scratch/runs" ] || ! kill -0 "$script" 2> /dev/null; do sleep 0.05; done
kill -TERM "$script"
wait "$script"
expect "an interrupted run says so" [ $? -eq 143 ]
expect "no child of the program outlives it" is_gone "$mark"
expect "no scratch folder is left" [ -z "$(find "$scratch" -name 'display.*')" ]

echo "$faults faults"
[ "$faults" -eq 0 ]
