#!/usr/bin/env bash
# Builds the Debian package from this tree's files, in build-package/ (never in the source tree itself),
# and prints the path of the .deb it made.
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
bash "$repo/scripts/install-deps.sh" >&2

version=$(dpkg-parsechangelog --file "$repo/debian/changelog" --show-field Version)
out=$repo/build-package
source=$out/pitchlark-$version
rm -rf "$source"
mkdir -p "$source"
# The tracked and new files as they are now, so uncommitted work is packaged too, but no build folders.
(cd "$repo" && git ls-files -z --cached --others --exclude-standard |
  while IFS= read -r -d '' file; do [ -e "$file" ] && printf '%s\0' "$file"; done |
  tar --null --files-from=- -cf -) | tar -xf - -C "$source"

# Rebuilds of the same tree are mostly ccache hits, the way Debian's ccache package offers them.
if [ -d /usr/lib/ccache ]; then
  export PATH=/usr/lib/ccache:$PATH CCACHE_BASEDIR=$source CCACHE_NOHASHDIR=1
fi
export DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)"
(cd "$source" && dpkg-buildpackage --build=binary --no-sign >"$out/build.log" 2>&1) || {
  tail -n 40 "$out/build.log" >&2
  echo "package: the build failed; the whole log is $out/build.log" >&2
  exit 1
}
arch=$(dpkg-architecture --query DEB_HOST_ARCH)
echo "$out/pitchlark_${version}_${arch}.deb"
