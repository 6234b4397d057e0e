#!/usr/bin/env bash
# Installs what is needed, builds orlo (without its tests), installs it into build/stage and runs the main
# job: one more file into a copy of the sample incident-report archive. Then it shows
# what a drive answers, from a bundled device image: its Identify Controller structure
# and its health summary.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORLO_TESTS=OFF >/dev/null
cmake --build build -j "$(nproc)"
cmake --install build --prefix build/stage >/dev/null

mkdir -p build/sample
cp samples/incident-report.zip build/sample/incident-report.zip
build/stage/bin/orlo update -source samples/drive-notes.txt \
  -destination build/sample/incident-report.zip
unzip -l build/sample/incident-report.zip

build/stage/bin/orlo show -ssd tests/data/images/nvme-tamsel-t2 ControllerNamespaceStructure=1
build/stage/bin/orlo health -ssd tests/data/images/nvme-tamsel-t2
