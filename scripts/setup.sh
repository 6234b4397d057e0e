#!/usr/bin/env bash
# Installs what orlo needs on Debian 12: to build it and run the sample job, and with
# --tests also what the tests, the fuzz targets and the benchmarks need. Safe to run again.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libboost-dev libboost-log-dev libboost-date-time-dev libboost-filesystem-dev libboost-system-dev
  libzip-dev zlib1g-dev unzip
)
case "${1:-}" in
  "") ;;
  --tests) packages+=(zip python3 clang libclang-rt-14-dev libgtest-dev libgmock-dev googletest
                      libbenchmark-dev prometheus prometheus-node-exporter curl python3-jsonschema) ;;
  *) echo "usage: scripts/setup.sh [--tests]" >&2; exit 2 ;;
esac

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ "${#missing[@]}" -gt 0 ]; then
  sudo_cmd=""
  [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
fi
