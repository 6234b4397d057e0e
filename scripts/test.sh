#!/usr/bin/env bash
# Installs what is needed, builds orlo twice (plain, and with AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs every test in both builds, then runs each fuzz
# target briefly, replaying its seed corpus.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh --tests

jobs=$(nproc)
run_suite() {
  local dir=$1; shift
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" -j "$jobs"
  (cd "$dir" && ctest --output-on-failure -j "$jobs")
}

echo "== plain build =="
run_suite build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORLO_TESTS=ON
echo "== sanitizer build (address, undefined) =="
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  run_suite build-asan -DCMAKE_BUILD_TYPE=Debug -DORLO_SANITIZE=ON -DORLO_TESTS=ON
echo "== fuzz targets, 30 seconds each =="
bash scripts/fuzz.sh 30
