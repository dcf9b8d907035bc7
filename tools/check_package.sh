#!/bin/bash
# check_package.sh BUILD: the Debian package made from a build folder, looked at by those who know packages, unpacked into
# an empty folder and used there: it starts, opens a video, takes a frame of it and saves it. Touches nothing else.
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: $0 BUILD" >&2; exit 2; }
tools=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/package.XXXXXX")
trap 'rm -rf "$work"' EXIT

(cd "$build" && cpack --config CPackConfig.cmake -B "$work/made" > "$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; exit 1; }
package=$(echo "$work"/made/*.deb)
[ -f "$package" ] || { echo "no package was made" >&2; exit 1; }

if command -v lintian > /dev/null; then
    echo "lintian"
    lintian --allow-root --fail-on error,warning "$package"
else
    echo "lintian is not installed, so it was not asked"
fi

root=$work/root
mkdir "$root"
dpkg-deb -x "$package" "$root"
share=$root/usr/share
echo "desktop entry and software centre's page"
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml > "$work/metainfo.log" || { cat "$work/metainfo.log"; exit 1; }
types=$(sed -n 's/^MimeType=//p' "$share"/applications/*.desktop | tr ';' '\n' | sort | xargs)
told=$(sed -n 's|.*<mediatype>\(.*\)</mediatype>.*|\1|p' "$share"/metainfo/*.xml | sort | xargs)
[ "$types" = "$told" ] || { echo "the desktop entry opens $types, the software centre's page says $told" >&2; exit 1; }
icon=$(sed -n 's/^Icon=//p' "$share"/applications/*.desktop)
for side in 16 48 256; do
    [ "$(identify -format '%wx%h' "$share/icons/hicolor/${side}x${side}/apps/$icon.png")" = "${side}x${side}" ]
done

echo "the unpacked program takes a frame"
"$tools/with_display.sh" "$tools/use_installed.sh" "$root/usr" "$tools/../resources/samples/Aurora.avi" "$work/home"
