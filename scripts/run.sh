#!/usr/bin/env bash
# Installs what is missing, builds Pitchlark and runs it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh release >/dev/null
exec build/src/App/pitchlark "$@"
