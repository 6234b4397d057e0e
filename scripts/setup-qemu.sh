#!/usr/bin/env bash
# Installs what scripts/qemu-check.sh needs on Debian 12: the emulator, a kernel to
# boot in it, a static busybox for the VM's shell, and the kernel's module tools to
# pick the drivers for its initramfs. Safe to run again.
set -euo pipefail

packages=(
  qemu-system-x86 linux-image-amd64 busybox-static kmod cpio
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ "${#missing[@]}" -gt 0 ]; then
  sudo_cmd=""
  [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
  export DEBIAN_FRONTEND=noninteractive
  # The VM boots an initramfs of its own: the kernel package need not make one.
  export INITRD=No
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
fi
