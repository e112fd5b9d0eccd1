#!/usr/bin/env bash
# Runs a command under an X server of its own (Xvfb, 1440x900), on a display number that the server picks
# itself (-displayfd): tests started at the same moment never race for one number, as xvfb-run -a can.
# -noreset: by default the server resets when its last client leaves, and the program's own probe of the
# display is such a client, so its real connection could land in the reset and fail.
set -euo pipefail
ready=$(mktemp)
Xvfb -displayfd 3 -screen 0 1440x900x24 -nolisten tcp -noreset 3>"$ready" 2>/dev/null &
server=$!
trap 'kill "$server" 2>/dev/null; wait "$server" 2>/dev/null; rm -f "$ready"' EXIT
# The server writes its display number once it accepts connections.
for _ in $(seq 100); do
  [ -s "$ready" ] && break
  kill -0 "$server" 2>/dev/null || { echo "with-xvfb: Xvfb did not start" >&2; exit 1; }
  sleep 0.1
done
[ -s "$ready" ] || { echo "with-xvfb: Xvfb gave no display" >&2; exit 1; }
DISPLAY=:$(head -n1 "$ready") "$@"
