#!/usr/bin/env bash
# Puts `orlo update` of an incident-report archive under stress, through the installed
# host, plug-in and provider (release build in build-bench):
#   1. a full disk (a small tmpfs) and a read-only destination (a read-only file, and a
#      read-only mount) give a clear error and leave the archive as it was;
#   2. KILLS kills at random instants during updates leave a valid archive every time,
#      the old one or the new one, and the next update removes the temporary files that
#      the killed runs left beside it;
#   3. ROUNDS rounds of 16 updates of one archive at the same time, each adding its own
#      file: every run succeeds and the archive holds all 16 files with their contents;
#   4. UPDATES updates in a row of one archive leave every added file readable and the
#      archive no larger than its entries need.
#   bash scripts/stress-archive.sh [KILLS] [UPDATES] [ROUNDS]     defaults 100, 1000 and 20
# Runs as root (for the mounts). Prints what each step saw; exits non-zero on a failure.
set -euo pipefail
cd "$(dirname "$0")/.."
kills=${1:-100}
updates=${2:-1000}
rounds=${3:-20}
bash scripts/build-release.sh
build=build-bench
orlo=$PWD/$build/install/bin/orlo
check="python3 $PWD/scripts/archive_check.py"

work=$(mktemp -d "${TMPDIR:-/tmp}/orlo-stress-XXXXXX")
mounts=()
cleanup() {
  for m in "${mounts[@]}"; do umount "$m" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

die() { echo "FAILED: $*" >&2; exit 1; }
random_file() { head -c "$2" /dev/urandom >"$1"; }

# The temporary files that updates of ARCHIVE have left beside it, one a line.
temporaries() { find "$(dirname "$1")" -mindepth 1 -maxdepth 1 -name '.~orlo-*' -printf '%f\n'; }
# Every file beside ARCHIVE but the archive itself, one a line.
beside() { find "$(dirname "$1")" -mindepth 1 -maxdepth 1 ! -name "$(basename "$1")" -printf '%f\n'; }

# Runs an update that must be refused: not exit status 0, a message, the archive unchanged
# and nothing left beside it.
expect_refusal() {
  local what=$1 source=$2 archive=$3 reference=$4 output status=0
  output=$("$orlo" update -source "$source" -destination "$archive" 2>&1) || status=$?
  [ "$status" -ne 0 ] || die "$what: the update succeeded"
  [ -n "$output" ] || die "$what: refused without a message"
  cmp -s "$archive" "$reference" || die "$what: the archive changed"
  [ -z "$(beside "$archive")" ] || die "$what: files left beside the archive"
  echo "$what: refused (exit $status), archive unchanged: $(echo "$output" | tr '\n' ' ')"
}

echo "== full disk and read-only destination =="
mkdir -p "$work/full" "$work/readonly" "$work/sources"
mount -t tmpfs -o size=8m tmpfs "$work/full" && mounts+=("$work/full")
$check make "$work/full/report.zip" 20 262144
cp "$work/full/report.zip" "$work/reference.zip"
random_file "$work/sources/large.bin" $((4 << 20))
expect_refusal "full disk" "$work/sources/large.bin" "$work/full/report.zip" "$work/reference.zip"

random_file "$work/sources/notes.txt" 4096
mkdir -p "$work/mode"
cp "$work/reference.zip" "$work/mode/report.zip"
chmod 444 "$work/mode/report.zip"
expect_refusal "read-only file" "$work/sources/notes.txt" "$work/mode/report.zip" \
  "$work/reference.zip"

mount -t tmpfs -o size=16m tmpfs "$work/readonly" && mounts+=("$work/readonly")
cp "$work/reference.zip" "$work/readonly/report.zip"
mount -o remount,ro "$work/readonly"
expect_refusal "read-only mount" "$work/sources/notes.txt" "$work/readonly/report.zip" \
  "$work/reference.zip"

echo "== $kills kills at random instants =="
mkdir -p "$work/kill"
$check make "$work/kill-base.zip" 128 262144
random_file "$work/sources/capture.bin" $((4 << 20))
cp "$work/kill-base.zip" "$work/kill/report.zip"
start=$(date +%s%N)
"$orlo" update -source "$work/sources/capture.bin" -destination "$work/kill/report.zip" >/dev/null
span=$(($(date +%s%N) - start))
old=0 new=0 most=0 present=0
declare -A seen=()
for ((i = 1; i <= kills; i++)); do
  cp "$work/kill-base.zip" "$work/kill/report.zip"
  # The host, the shell and the provider share the new process group, and die together.
  setsid "$orlo" update -source "$work/sources/capture.bin" \
    -destination "$work/kill/report.zip" >/dev/null 2>&1 &
  pid=$!
  sleep "$(awk -v n="$span" -v r="$RANDOM" 'BEGIN { printf "%.4f", n * 1.2 * r / 32767 / 1e9 }')"
  kill -KILL -- "-$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
  result=$($check state "$work/kill/report.zip" "$work/kill-base.zip" \
    "$work/sources/capture.bin") || die "kill $i left a broken archive"
  if [ "$result" = new ]; then new=$((new + 1)); else old=$((old + 1)); fi
  present=0
  while read -r name; do
    seen[$name]=1
    present=$((present + 1))
  done < <(temporaries "$work/kill/report.zip")
  [ "$present" -le "$most" ] || most=$present
done
echo "every archive valid (update takes $((span / 1000000)) ms): $old old, $new new"
echo "temporary files left by the killed runs: ${#seen[@]} in all, at most $most at once," \
  "$present after the last kill"
"$orlo" update -source "$work/sources/notes.txt" -destination "$work/kill/report.zip" >/dev/null ||
  die "the update after the kills failed"
echo "temporary files after one more update: $(temporaries "$work/kill/report.zip" | wc -l)"
left=$(beside "$work/kill/report.zip")
[ -z "$left" ] || die "left beside the archive after the kills and one more update: ${left//$'\n'/ }"

echo "== $rounds rounds of 16 updates of one archive at the same time =="
mkdir -p "$work/parallel/archive" "$work/parallel/sources" "$work/parallel/logs"
archive=$work/parallel/archive/report.zip
sample=$PWD/samples/incident-report.zip
runs=0 failed=0 checked=0 right=0 stray=0
for ((round = 1; round <= rounds; round++)); do
  cp "$sample" "$archive"
  sources=()
  for ((k = 0; k < 16; k++)); do
    sources+=("$work/parallel/sources/part$k.bin")
    random_file "${sources[k]}" $(((64 + RANDOM % 960) << 10))
  done
  pids=()
  for ((k = 0; k < 16; k++)); do
    "$orlo" update -source "${sources[k]}" -destination "$archive" \
      >"$work/parallel/logs/$k.log" 2>&1 &
    pids+=($!)
  done
  for ((k = 0; k < 16; k++)); do
    runs=$((runs + 1))
    wait "${pids[k]}" && continue
    failed=$((failed + 1))
    echo "round $round, run $k failed: $(tr '\n' ' ' <"$work/parallel/logs/$k.log")"
  done
  found=$($check contains "$archive" "$sample" "${sources[@]}" 2>"$work/parallel/check.log") ||
    echo "round $round: $(cat "$work/parallel/check.log")"
  found=${found%% *}
  [[ $found =~ ^[0-9]+$ ]] || found=0
  checked=$((checked + 16))
  right=$((right + found))
  left=$(beside "$archive")
  [ -z "$left" ] || { echo "round $round left beside the archive: ${left//$'\n'/ }"; stray=$((stray + 1)); }
done
echo "$rounds rounds, $runs runs: $failed failed; $right of $checked entries present with" \
  "their bytes; $stray rounds left files beside the archive"
[ "$failed" -eq 0 ] && [ "$right" -eq "$checked" ] && [ "$stray" -eq 0 ] ||
  die "updates at the same time lost data or failed"

echo "== $updates updates in a row =="
mkdir -p "$work/many/sources"
$check make "$work/many/report.zip" 1 1024
for ((i = 0; i < updates; i++)); do
  source="$work/many/sources/note$((i % 100)).txt"
  { echo "update $i"; head -c $((512 + RANDOM % 8192)) /dev/urandom | base64; } >"$source"
  "$orlo" update -source "$source" -destination "$work/many/report.zip" >/dev/null ||
    die "update $i failed"
done
$check holds "$work/many/report.zip" "$work/many/sources"
echo "stress passed"
