#!/usr/bin/env bash
# Installs what is needed, builds orlo and runs it on the bundled sample data.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$(nproc)"
./build/src/host/orlo --version
