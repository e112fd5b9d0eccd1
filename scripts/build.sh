#!/usr/bin/env bash
# Configures and builds one flavour of Pitchlark into its own folder.
#   scripts/build.sh [release|asan|fuzz]
set -euo pipefail
cd "$(dirname "$0")/.."

flavour=${1:-release}
werror=OFF
[ "${CI:-}" = "true" ] && werror=ON

case "$flavour" in
  release) dir=build;      args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
  asan)    dir=build-asan; args=(-DCMAKE_BUILD_TYPE=Debug -DPITCHLARK_SANITIZE=ON) ;;
  fuzz)    dir=build-fuzz; args=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DPITCHLARK_FUZZ=ON
                                 -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang) ;;
  *) echo "usage: $0 [release|asan|fuzz]" >&2; exit 2 ;;
esac

# ccache makes rebuilds in fresh clones and other work trees cheap; paths are taken relative to the tree.
launcher=()
if command -v ccache >/dev/null; then
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi

cmake -S . -B "$dir" -G Ninja -DPITCHLARK_WERROR="$werror" "${launcher[@]}" "${args[@]}" >/dev/null
cmake --build "$dir"
