#!/bin/bash
# with_display.sh PROGRAM ARGS…: runs the program on a private screen of 1920x1200 with a window manager and a message
# bus of its own, and returns its exit code. Nothing of the user's desktop gets in, and nothing stays behind.
set -uo pipefail
set -m # every part is a process group of its own, so that it goes with all its children

[ $# -gt 0 ] || { echo "usage: $0 PROGRAM ARGS…" >&2; exit 2; }
for needed in Xvfb openbox xprop; do
    command -v "$needed" > /dev/null || { echo "$0 needs $needed: run tools/install_packages.sh" >&2; exit 127; }
done

readonly deadline=30 # seconds for each part to get ready
scratch=$(mktemp -d "${TMPDIR:-/tmp}/display.XXXXXX")
program= manager= server=

# An X server that is asked to go removes its lock and its socket, so its end is awaited before anything is forced.
end_group()
{
    [ -n "$1" ] || return 0
    kill -TERM -- "-$1" 2> /dev/null || return 0
    for ((waited = 0; waited < 100; ++waited)); do
        kill -0 "$1" 2> /dev/null || break
        sleep 0.05
    done
    kill -KILL -- "-$1" 2> /dev/null
}

clean_up()
{
    trap '' INT TERM HUP
    end_group "$program"
    end_group "$manager"
    end_group "$server"
    rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

give_up()
{
    echo "with_display.sh: $1" >&2
    cat "$scratch"/*.log >&2 2> /dev/null
    exit 125
}

start_server()
{
    mkfifo "$scratch/number"
    Xvfb -displayfd 3 -screen 0 1920x1200x24 -dpi 96 -noreset -nolisten tcp \
        3> "$scratch/number" > "$scratch/server.log" 2>&1 < /dev/null &
    server=$!
    local number=
    read -r -t "$deadline" number <> "$scratch/number" || give_up "the X server did not start"
    export DISPLAY=":$number"
}

is_managed()
{
    xprop -root -notype _NET_SUPPORTING_WM_CHECK 2> /dev/null | grep -q 'window id'
}

start_manager()
{
    local config='<openbox_config xmlns="http://openbox.org/3.4/rc"><desktops><number>1</number></desktops></openbox_config>'
    echo "$config" > "$scratch/openbox.xml"
    XDG_CONFIG_HOME="$scratch" openbox --config-file "$scratch/openbox.xml" > "$scratch/manager.log" 2>&1 < /dev/null &
    manager=$!
    for ((waited = 0; waited < deadline * 20; ++waited)); do
        is_managed && return
        kill -0 "$manager" 2> /dev/null || break
        sleep 0.05
    done
    give_up "the window manager did not start"
}

unset WAYLAND_DISPLAY XAUTHORITY DBUS_SESSION_BUS_ADDRESS SESSION_MANAGER XDG_CURRENT_DESKTOP DESKTOP_SESSION
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_FONT_DPI
export QT_QPA_PLATFORM=xcb XDG_SESSION_TYPE=x11 LC_ALL=C.UTF-8
start_server
start_manager

bus=()
command -v dbus-run-session > /dev/null && bus=(dbus-run-session --)
"${bus[@]}" "$@" < /dev/null &
program=$!
wait "$program"
