#!/usr/bin/env bash
# Builds the Debian package and checks it the way a user meets it: lintian on the .deb, the desktop file
# and AppStream validators on what it installs, and the unpacked program run from outside the source
# tree, with no display and with this whole tree (build folders included) out of its reach.
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$PWD
deb=$(bash scripts/package.sh)
echo "== $deb ($(du -k "$deb" | cut -f1) KiB)"
dpkg-deb --field "$deb" Depends Recommends

echo "== lintian"
lintian --fail-on error,warning --display-info "$deb"

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb --extract "$deb" "$root"
id=com.pitchlark.Pitchlark

echo "== installed desktop files"
desktop-file-validate "$root/usr/share/applications/$id.desktop"
appstreamcli validate --no-net "$root/usr/share/metainfo/$id.metainfo.xml"
for icon in scalable/apps/$id.svg symbolic/apps/$id-symbolic.svg 64x64/apps/$id.png 128x128/apps/$id.png; do
  test -s "$root/usr/share/icons/hicolor/$icon" || { echo "missing icon $icon" >&2; exit 1; }
done
man --local-file "$root/usr/share/man/man1/pitchlark.1.gz" >/dev/null

# Runs the unpacked program from / in a clean environment, in a private mount namespace where an empty
# folder lies over this tree, so that nothing of the sources or the builds can be read.
isolate=(unshare --mount)
[ "$(id -u)" -eq 0 ] || isolate=(unshare --map-root-user --mount)
unpacked='mount -t tmpfs empty "$0" && cd / && home=$1 && shift &&
  exec env -i HOME="$home" PATH=/usr/bin:/bin ${DISPLAY:+DISPLAY="$DISPLAY"} ${XAUTHORITY:+XAUTHORITY="$XAUTHORITY"} "$@"'
mkdir "$root/home"
run_unpacked() { "${isolate[@]}" sh -c "$unpacked" "$repo" "$root/home" "$@"; }

echo "== the unpacked program, from /, without a display or this tree"
run_unpacked "$root/usr/bin/pitchlark" --version
run_unpacked "$root/usr/bin/pitchlark" --help >/dev/null
run_unpacked "$root/usr/bin/pitchlark" status --demo --json | python3 -c '
import json, sys
matches = json.load(sys.stdin)["allMatches"]
print(f"status --demo --json: {len(matches)} matches")
sys.exit(0 if len(matches) == 104 else 1)'

echo "== the QML modules and plugins the panel loads come from the package's Depends"
# Qt finds QML modules (their qmldir files and plugins) and its platform plugins by name at run time, out
# of dpkg-shlibdeps' sight: the panel is shown on the demo (and snapshotted, which ends it), and the
# qmldir files it read and the plugins it loaded are looked up.
xvfb-run -a -s "-screen 0 1440x900x24 -noreset" "${isolate[@]}" sh -c "$unpacked" "$repo" "$root/home" \
  TIDEWELL_SNAPSHOT="$root/panel.png" TIDEWELL_PINNED=1 LD_DEBUG=files LD_DEBUG_OUTPUT="$root/loaded" \
  strace --follow-forks --quiet=all --trace=openat --output="$root/opened" "$root/usr/bin/pitchlark" --demo
test -s "$root/panel.png"
mapfile -t used < <({
  grep -v ' = -1 ' "$root/opened" | grep -oE '"/usr/lib/[^"]*/qt6/qml/[^"]*/qmldir"' | tr -d '"'
  sed -n 's/.*calling init: //p' "$root"/loaded.* | grep -E '/qt6/(qml|plugins)/'
} | sort -u)
mapfile -t needed < <(dpkg --search "${used[@]}" | cut -d: -f1 | sort -u)
echo "${needed[*]}"
depends=$(dpkg-deb --field "$deb" Depends | tr ',|' '\n\n' | sed 's/(.*)//; s/[[:space:]]//g')
for package in "${needed[@]}"; do
  grep -qx "$package" <<<"$depends" || { echo "Depends lacks $package" >&2; exit 1; }
done
