#!/usr/bin/env bash
# Fails when any C++ file of the project differs from what .clang-format makes of it.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
