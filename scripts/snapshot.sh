#!/usr/bin/env bash
# Writes a picture of the panel on the demo's live data, on a headless machine too (an X server of its
# own), and says where it is. Any TIDEWELL_* variable set by the caller goes through, for example
#   TIDEWELL_SECTION=standings TIDEWELL_FLOATING=1 bash scripts/snapshot.sh /tmp/panel.png
set -euo pipefail
cd "$(dirname "$0")/.."
output=$(realpath -m "${1:-pitchlark-snapshot.png}")
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
TIDEWELL_SNAPSHOT="$output" TIDEWELL_PINNED=1 QT_QPA_PLATFORM=xcb \
  xvfb-run -a -s "-screen 0 1440x900x24 -noreset" build/src/App/pitchlark --demo
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && command -v xdg-open >/dev/null; then
  xdg-open "$output" >/dev/null 2>&1 &
fi
echo "$output"
