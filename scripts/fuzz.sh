#!/usr/bin/env bash
# Builds every libFuzzer target (clang, AddressSanitizer and UndefinedBehaviorSanitizer)
# and runs each for SECONDS seconds, starting from its seed corpus in fuzz/corpus.
# Inputs that the run finds go to build-fuzz/corpus, never into the repository; a
# crashing input is kept in build-fuzz/artifacts. Prints each target's execution count.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:?usage: scripts/fuzz.sh SECONDS}
bash scripts/setup.sh --tests

build=build-fuzz
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DORLO_FUZZ=ON -DORLO_TESTS=OFF "${launcher[@]}" >/dev/null
cmake --build "$build" -j "$(nproc)" --target fuzzers

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# The archive target writes a file per input; memory-backed storage keeps it quick.
[ -w /dev/shm ] && export TMPDIR=/dev/shm
failed=()
for seeds in fuzz/corpus/*/; do
  name=$(basename "$seeds")
  program=$build/fuzz/fuzz_$name
  corpus=$build/corpus/$name
  mkdir -p "$corpus" "$build/artifacts"
  log=$build/fuzz_$name.log
  if "$program" -max_total_time="$seconds" -print_final_stats=1 -timeout=10 -rss_limit_mb=2048 \
    -artifact_prefix="$build/artifacts/${name}-" "$corpus" "$seeds" >"$log" 2>&1; then
    printf '%-12s %12s executions\n' "$name" \
      "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
  else
    failed+=("$name")
    printf '%-12s FAILED (see %s)\n' "$name" "$log"
    grep -E -A12 '^==[0-9]+==|runtime error|deadly signal' "$log" | head -40 || true
  fi
done
[ "${#failed[@]}" -eq 0 ] || { echo "fuzz targets that failed: ${failed[*]}"; exit 1; }
