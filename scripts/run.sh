#!/usr/bin/env bash
# Installs what is missing, builds Pitchlark and runs it: the demo by default, else the arguments given.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
if [ $# -eq 0 ]; then
  set -- status --demo --watch
fi
exec build/src/App/pitchlark "$@"
