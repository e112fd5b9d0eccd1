#!/usr/bin/env bash
# Installs what is missing, builds Pitchlark and runs it: the tray demo by default, else the arguments
# given. Without a graphical session the demo runs headless, printing scores and alerts instead.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
if [ $# -eq 0 ]; then
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    set -- --demo
  else
    echo "No graphical session here: running the headless demo (pitchlark status --demo --watch)." >&2
    set -- status --demo --watch
  fi
fi
exec build/src/App/pitchlark "$@"
