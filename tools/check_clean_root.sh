#!/bin/bash
# check_clean_root.sh PACKAGE [ROOT]: installs the Debian package into a bare Debian 12 (made by debootstrap, which needs
# root, the network and some minutes; or the one that stands in ROOT already), uses the program there, removes it and
# looks for what it left.
set -euo pipefail
[ $# -ge 1 ] || { echo "usage: $0 PACKAGE [ROOT]" >&2; exit 2; }
package=$(realpath "$1")
tools=$(cd "$(dirname "$0")" && pwd)
root=${2:-} made=
clean_up()
{
    umount "$root/proc" 2> /dev/null || true
    [ -z "$made" ] || rm -rf --one-file-system "$made"
}
trap clean_up EXIT
if [ -z "$root" ]; then
    root=$(mktemp -d "${TMPDIR:-/tmp}/root.XXXXXX")
    made=$root
    debootstrap --variant=minbase bookworm "$root" http://deb.debian.org/debian > /dev/null
fi
name=$(dpkg-deb -f "$package" Package)
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
install() { inside apt-get install -y -qq --no-install-recommends "$@" > "$root/apt.log" 2>&1 || { tail "$root/apt.log"; exit 1; }; }

mount -t proc proc "$root/proc"
inside apt-get update -qq
cp "$package" "$root/package.deb"
echo "installed with what it depends on alone"
install /package.deb
inside ldd /usr/bin/taq | grep 'not found' && exit 1

echo "started, used"
install xvfb openbox xdotool x11-utils dbus imagemagick ffmpeg fonts-dejavu-core
rm -rf "$root/check"
mkdir "$root/check"
cp "$tools/with_display.sh" "$tools/use_installed.sh" "$tools/../resources/samples/Aurora.avi" "$root/check/"
inside /check/with_display.sh /check/use_installed.sh /usr /check/Aurora.avi /check/home

echo "removed"
inside dpkg -L "$name" > "$root/files.txt"
inside apt-get purge -y -qq "$name" > /dev/null
while read -r file; do
    case $file in *taq*) [ ! -e "$root$file" ] || { echo "left behind: $file" >&2; exit 1; } ;; esac
done < "$root/files.txt"
echo "nothing is left"
