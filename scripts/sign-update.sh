#!/usr/bin/env bash
# Signs Pitchlark releases for the update feed (the appcast that AppImage builds check).
#   scripts/sign-update.sh generate-keys
#       makes the Ed25519 key pair once; prints the public key to build releases with:
#       cmake ... -DPITCHLARK_UPDATE_PUBLIC_KEY=<public key>
#   scripts/sign-update.sh public-key
#       prints the public key of the existing private key again
#   scripts/sign-update.sh sign RELEASE_FILE VERSION DISPLAY_VERSION DOWNLOAD_URL
#       prints the appcast <item> for the release, to paste into the appcast's <channel>
# The private key is read from $PITCHLARK_SIGNING_KEY, else ~/.config/pitchlark-release/update-signing.key.
# It must never enter the repository: paths inside it are refused.
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
key=${PITCHLARK_SIGNING_KEY:-$HOME/.config/pitchlark-release/update-signing.key}
key=$(realpath -m "$key")

case "$key/" in
  "$repo"/*) echo "sign-update: the private key must live outside the repository ($key)" >&2; exit 2 ;;
esac
case "${1:-}" in
  generate-keys|public-key|sign) ;;
  *) sed -n '2,11p' "$0" | sed 's/^# \{0,1\}//' >&2; exit 2 ;;
esac
command=$1
shift

bash "$repo/scripts/install-deps.sh" >&2
if [ ! -f "$repo/build/build.ninja" ]; then
  cmake -S "$repo" -B "$repo/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
cmake --build "$repo/build" --target pitchlark-sign-update >/dev/null

[ "$command" = generate-keys ] && mkdir -p -m 700 "$(dirname "$key")"
exec "$repo/build/src/Core/Updates/pitchlark-sign-update" "$command" "$key" "$@"
