#!/usr/bin/env bash
# Builds the release flavour and prints every benchmark's figures.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
for benchmark in build/bench/bench_*; do
  [ -x "$benchmark" ] || continue
  echo "== $(basename "$benchmark")"
  if [ "$(basename "$benchmark")" = bench_shell ] && [ -z "${DISPLAY:-}" ]; then
    # The panel needs an X server: give it one of its own.
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1440x900x24 -noreset" "$benchmark"
  else
    "$benchmark"
  fi
done
