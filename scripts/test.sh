#!/usr/bin/env bash
# Installs what is missing, builds and runs every test: the unit and integration tests, the same tests
# under AddressSanitizer and UndefinedBehaviorSanitizer, a bounded fuzzing run, and the Debian package.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

jobs=$(nproc)

echo "== formatting"
bash scripts/check-format.sh

echo "== fuzzing (libFuzzer, ASan, UBSan)"
bash scripts/build.sh fuzz
ctest --test-dir build-fuzz --output-on-failure

echo "== tests under ASan and UBSan"
bash scripts/build.sh asan
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-asan --output-on-failure -j "$jobs"

echo "== tests"
bash scripts/build.sh release
ctest --test-dir build --output-on-failure -j "$jobs"

echo "== the Debian package"
bash scripts/check-package.sh
