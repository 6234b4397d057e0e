#!/usr/bin/env bash
# Times `orlo update` next to Info-ZIP's `zip -u` and next to `zip -u` followed by `sync`
# of the archive, on the same files in one run: a 4 KiB file into the sample incident
# report, updates in a row of one growing archive, a 1 MiB file into archives of several
# sizes, a large file into an archive of its size and, as root, a 1 MiB file into a large
# archive on a loop-mounted XFS image with reflink. Prints a table with the ratios and the
# provider's peak memory, the targets met or missed, and the host's own overhead.
#   bash bench/archive.sh [-u UPDATES] [-l LARGE_MIB] [-x XFS_MIB] [SIZE_MIB...]
# Defaults: 1000 updates, a 64 MiB file into a 64 MiB archive, a 1 GiB archive on XFS
# and sizes 1 64 1024; 0 skips the updates, the large file or the XFS case.
# Work files go to fresh folders under ${TMPDIR:-/tmp}; 1 GiB sizes need about 3.5 GiB
# there, and the XFS image up to three times its archive's size.
set -euo pipefail
cd "$(dirname "$0")/.."

updates=1000 large=64 xfs_mib=1024
while getopts "u:l:x:" option; do
  case $option in
    u) updates=$OPTARG ;;
    l) large=$OPTARG ;;
    x) xfs_mib=$OPTARG ;;
    *) sed -n '8,10s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
  esac
done
shift $((OPTIND - 1))
[ $# -gt 0 ] || set -- 1 64 1024

bash scripts/build-release.sh
build=build-bench

work=$(mktemp -d "${TMPDIR:-/tmp}/orlo-archive-xfs-XXXXXX")
loop="" mounted=""
cleanup() {
  [ -z "$mounted" ] || umount "$mounted" || true
  [ -z "$loop" ] || losetup -d "$loop" || true
  rm -rf "$work"
}
trap cleanup EXIT

# Succeeds when COMMAND is there, after installing PACKAGE for it when missing, as root.
# Only the benchmark needs these two, so the set-up leaves them out.
have() {
  local command=$1 package=$2
  type -P "$command" >/dev/null && return
  [ "$(id -u)" -eq 0 ] || return 1
  echo "installing $package for $command" >&2
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq && apt-get install -y -qq --no-install-recommends "$package" </dev/null >/dev/null
  type -P "$command" >/dev/null
}
# GNU time gives the provider's peak memory; without it that column stays empty.
have time time || echo "GNU time missing (package time): no memory figures" >&2

# The XFS case: a sparse image in the work folder, formatted with reflink and loop-mounted.
# The loop device does direct I/O, so that what XFS writes goes to the disk at once and a
# sync before a run leaves nothing of the last one in the page cache of the image file.
xfs=()
if [ "$xfs_mib" -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then
    xfs=(--xfs-skipped "not root, which the loop mount needs")
  elif ! have mkfs.xfs xfsprogs; then
    xfs=(--xfs-skipped "mkfs.xfs missing and package xfsprogs not installable")
  else
    truncate -s $((xfs_mib * 3 + 512))M "$work/xfs.img"
    mkdir "$work/xfs"
    if mkfs.xfs -q -m reflink=1 "$work/xfs.img" 2>"$work/mount.log" &&
      loop=$(losetup --find --show --direct-io=on "$work/xfs.img" 2>>"$work/mount.log") &&
      mount "$loop" "$work/xfs" 2>>"$work/mount.log"; then
      mounted=$work/xfs
      xfs=(--xfs "$work/xfs" --xfs-mib "$xfs_mib")
    else
      xfs=(--xfs-skipped "mounting the image failed: $(tr '\n' ' ' <"$work/mount.log")")
    fi
  fi
fi

python3 bench/archive_times.py "$build/install" --updates "$updates" --large "$large" \
  "${xfs[@]}" "$@"
