#!/usr/bin/env bash
# Builds the release tree with the benchmarks in build-bench and installs it into
# build-bench/install, quietly: the tree that the archive benchmark and the stress run use.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh --tests

build=build-bench
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORLO_BENCH=ON -DORLO_TESTS=OFF \
  "${launcher[@]}" >/dev/null
cmake --build "$build" -j "$(nproc)" >/dev/null
cmake --install "$build" --prefix "$build/install" >/dev/null
