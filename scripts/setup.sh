#!/usr/bin/env bash
# Installs what orlo needs to build and test on Debian 12. Safe to run again.
set -euo pipefail

packages=(
  cmake ninja-build g++ clang pkg-config
  libboost-dev libboost-log-dev libboost-date-time-dev libboost-filesystem-dev libboost-system-dev
  libzip-dev zlib1g-dev zip unzip
  libgtest-dev libgmock-dev googletest
  libclang-rt-14-dev libbenchmark-dev p7zip-full
  python3
)

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
