#!/usr/bin/env bash
# Times `orlo update` of a 1 MiB file into archives of several sizes next to Info-ZIP's
# `zip -u`, 7-Zip's `7z u` and Python's zipfile in append mode, on the same files in one
# run, and the host's own overhead on the path that fails fast on a missing source.
#   bash bench/archive.sh [SIZE_MIB...]     sizes default to 1 64 1024
# Work files go to a fresh folder under ${TMPDIR:-/tmp}; a 1 GiB size needs about 3.5 GiB.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build-release.sh
build=build-bench

[ $# -gt 0 ] || set -- 1 64 1024
python3 bench/archive_times.py "$build/install" "$@"
