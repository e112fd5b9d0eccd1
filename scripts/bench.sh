#!/usr/bin/env bash
# Builds the release flavour and prints every benchmark's figures.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
for benchmark in build/bench/bench_*; do
  [ -x "$benchmark" ] || continue
  echo "== $(basename "$benchmark")"
  "$benchmark"
done
