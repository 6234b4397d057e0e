#!/usr/bin/env bash
# Puts `orlo update` of an incident-report archive under stress, through the installed
# host, plug-in and provider (release build in build-bench):
#   1. a full disk (a small tmpfs) and a read-only destination (a read-only file, and a
#      read-only mount) give a clear error and leave the archive as it was;
#   2. KILLS kills at random instants during updates leave a valid archive every time,
#      the old one or the new one;
#   3. UPDATES updates in a row of one archive leave every added file readable and the
#      archive no larger than its entries need.
#   bash scripts/stress-archive.sh [KILLS] [UPDATES]      defaults 100 and 1000
# Runs as root (for the mounts). Prints what each step saw; exits non-zero on a failure.
set -euo pipefail
cd "$(dirname "$0")/.."
kills=${1:-100}
updates=${2:-1000}
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

# Runs an update that must be refused: not exit status 0, a message, the archive unchanged
# and nothing left beside it.
expect_refusal() {
  local what=$1 source=$2 archive=$3 reference=$4 output status=0
  output=$("$orlo" update -source "$source" -destination "$archive" 2>&1) || status=$?
  [ "$status" -ne 0 ] || die "$what: the update succeeded"
  [ -n "$output" ] || die "$what: refused without a message"
  cmp -s "$archive" "$reference" || die "$what: the archive changed"
  [ "$(ls -A "$(dirname "$archive")" | wc -l)" -eq 1 ] || die "$what: files left beside the archive"
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
$check make "$work/kill/base.zip" 128 262144
random_file "$work/sources/capture.bin" $((4 << 20))
cp "$work/kill/base.zip" "$work/kill/report.zip"
start=$(date +%s%N)
"$orlo" update -source "$work/sources/capture.bin" -destination "$work/kill/report.zip" >/dev/null
span=$(($(date +%s%N) - start))
old=0 new=0 leftovers=0
for ((i = 1; i <= kills; i++)); do
  cp "$work/kill/base.zip" "$work/kill/report.zip"
  # The host, the shell and the provider share the new process group, and die together.
  setsid "$orlo" update -source "$work/sources/capture.bin" \
    -destination "$work/kill/report.zip" >/dev/null 2>&1 &
  pid=$!
  sleep "$(awk -v n="$span" -v r="$RANDOM" 'BEGIN { printf "%.4f", n * 1.2 * r / 32767 / 1e9 }')"
  kill -KILL -- "-$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
  result=$($check state "$work/kill/report.zip" "$work/kill/base.zip" \
    "$work/sources/capture.bin") || die "kill $i left a broken archive"
  if [ "$result" = new ]; then new=$((new + 1)); else old=$((old + 1)); fi
  for temporary in "$work/kill"/report.zip.??????; do
    [ -e "$temporary" ] || continue
    leftovers=$((leftovers + 1))
    rm -f "$temporary"
  done
done
echo "every archive valid (update takes $((span / 1000000)) ms): $old old, $new new;" \
  "$leftovers temporary files left by a kill"

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
