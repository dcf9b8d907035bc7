#!/bin/bash
# command_line_test.sh PROGRAM: what the program answers to its options, without a screen where it needs none.
set -uo pipefail
program=$1
failed=0

# expect CODE STREAM PATTERN ARGS…: the exit code, and a line on that stream alone.
expect()
{
    local code=$1 stream=$2 pattern=$3 out err got
    shift 3
    err=$(mktemp)
    out=$("$program" "$@" 2> "$err" < /dev/null)
    got=$?
    local said=$out other
    other=$(cat "$err")
    [ "$stream" = out ] || { said=$other; other=$out; }
    rm -f "$err"
    if [ $got -ne "$code" ] || ! grep -q -e "$pattern" <<< "$said" || [ -n "$other" ]; then
        echo "taq $*: exit code $got, not $code; said \"$said\" where \"$pattern\" was due, and \"$other\"" >&2
        failed=1
    fi
}

XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
unset DISPLAY WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb
expect 0 out '^Usage: taq ' --help
expect 0 out '^TAQ Video Capture Pro [0-9]' --version
export QT_QPA_PLATFORM=offscreen
expect 0 out '^Usage: taq ' -platform offscreen --help
expect 2 err '^taq: The program has no option "--nonsense"' --nonsense
exit $failed
