#!/usr/bin/env bash
# Checks the device backends on emulated drives: builds and installs orlo, packs the
# installed files with their shared libraries, busybox and the kernel's NVMe and
# AHCI drivers into an initramfs, boots Debian's kernel on it under
# qemu-system-x86_64 (software emulation) with an NVMe controller and an AHCI SATA
# disk, runs the installed orlo against both and compares what it decodes with
# what the VM's sysfs and the emulator's settings say of them: serial number,
# model, firmware and version, the drive list, and a captured device image played
# back, refusals included; then each drive's health summary and log pages, its
# temperature next to hwmon's, an incident report of both drives played back from
# inside the archive, and the fleet metrics. The SATA disk's model and firmware are
# longer than the SCSI inquiry's 16 and 4 characters, so that only the drive's own
# strings match.
# Needs scripts/setup-qemu.sh once. Prints the drives' answers and the time it took.
#
#   bash scripts/qemu-check.sh            build in build-qemu, then boot
#   ORLO_QEMU_BUILD=DIR bash scripts/...  install from that build, built already (CI
#                                         passes build, which its tests ran)
set -euo pipefail
cd "$(dirname "$0")/.."
started=$(date +%s)

work=$(mktemp -d /tmp/orlo-qemu.XXXXXX)
trap 'rm -rf "$work"' EXIT
kernel_version=$(ls /lib/modules | sort -V | tail -1)
kernel=/boot/vmlinuz-$kernel_version
for need in qemu-system-x86_64 busybox cpio modinfo; do
  command -v "$need" >/dev/null || { echo "qemu-check: $need is missing; run scripts/setup-qemu.sh" >&2; exit 2; }
done
[ -r "$kernel" ] || { echo "qemu-check: no kernel at $kernel; run scripts/setup-qemu.sh" >&2; exit 2; }

if [ -n "${ORLO_QEMU_BUILD:-}" ]; then
  # Built by its owner: CI installs what its tests ran, without a build of its own.
  build=$ORLO_QEMU_BUILD
  echo "== installing orlo from $build"
else
  build=build-qemu
  echo "== building and installing orlo"
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORLO_TESTS=OFF >/dev/null
  cmake --build "$build" -j "$(nproc)" >/dev/null
fi
prefix=/opt/orlo
stage=$build/stage
rm -rf "$stage"
DESTDIR=$stage cmake --install "$build" --prefix "$prefix" --strip >/dev/null
root=$work/root
mkdir -p "$root"
cp -a "$stage/." "$root/"

# The SATA disk's strings, longer than what the SCSI inquiry keeps of them (16
# characters of the model, the firmware's last 4) and as long as the emulator takes
# (40, 8 and 20 characters).
sata_model="ORLO EMULATED SATA DISK MODEL 1234567890"
sata_firmware="ORFW1.02"
sata_serial="ORLOSATA000100000042"

echo "== packing the initramfs"
mkdir -p "$root"/{bin,dev,etc,proc,sys,tmp,modules}
printf 'root:x:0:0:root:/:/bin/sh\nnobody:x:65534:65534:nobody:/:/bin/sh\n' >"$root/etc/passwd"
printf 'root:x:0:\nnogroup:x:65534:\n' >"$root/etc/group"
cp "$(command -v busybox)" "$root/bin/busybox"
# Every installed program and library brings the shared libraries it loads.
find "$root$prefix" -type f \( -perm -u+x -o -name '*.so*' \) | while read -r elf; do
  ldd "$elf" 2>/dev/null | grep -o '/[^ ]*' || true
done | sort -u | while read -r library; do
  mkdir -p "$root$(dirname "$library")"
  cp -L "$library" "$root$library"
done

# The drivers, with the modules they need loaded before them.
order=()
add_module() {
  local name=$1 dependency
  for dependency in $(modinfo -k "$kernel_version" -F depends "$name" | tr ',' ' '); do
    add_module "$dependency"
  done
  local file
  file=$(modinfo -k "$kernel_version" -F filename "$name")
  [[ " ${order[*]-} " == *" $file "* ]] || order+=("$file")
}
for module in scsi_common sd_mod ahci nvme; do add_module "$module"; done
# SATA disks' temperature in hwmon, where the kernel has the module.
modinfo -k "$kernel_version" drivetemp >/dev/null 2>&1 && add_module drivetemp
for file in "${order[@]}"; do
  cp "$file" "$root/modules/"
  basename "$file" >>"$root/modules/order"
done

# The NVMe version register, read through the controller's PCI resource file in
# sysfs. The kernel refuses to map registers that a driver has claimed, so the VM
# reads it before the NVMe driver is loaded.
cat >"$work/read-register.c" <<'C'
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
int main(int argc, char** argv) {
  int fd = open(argv[1], O_RDONLY | O_SYNC);
  if (fd < 0) return perror(argv[1]), 1;
  volatile uint32_t* registers = mmap(0, 4096, PROT_READ, MAP_SHARED, fd, 0);
  if (registers == MAP_FAILED) return perror("mmap"), 1;
  printf("0x%08x\n", registers[strtoul(argv[2], 0, 0) / 4]);
  return 0;
}
C
gcc -static -O2 -o "$root/bin/read-register" "$work/read-register.c"

cat >"$root/init" <<'SH'
#!/bin/busybox sh
/bin/busybox --install -s /bin
mount -t proc proc /proc
mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
for module in $(cat /modules/order); do
  if [ "$module" = nvme.ko ]; then
    for function in /sys/bus/pci/devices/*; do
      [ "$(cat "$function/class")" = 0x010802 ] || continue
      echo 1 >"$function/enable"
      read-register "$function/resource0" 8 >/tmp/nvme-version
      echo 0 >"$function/enable"
    done
  fi
  insmod "/modules/$module"
done
for second in $(seq 60); do
  [ -e /dev/nvme0 ] && [ -e /dev/sda ] && break
  sleep 1
done
echo
echo "== begin"
sh /check.sh
echo "== end"
poweroff -f
SH
chmod +x "$root/init"

cat >"$root/check.sh" <<SH
probe=$prefix/libexec/orlo/orlo-probe
orlo=$prefix/bin/orlo
sata_model="$sata_model"
sata_firmware="$sata_firmware"
sata_serial="$sata_serial"
SH
cat >>"$root/check.sh" <<'SH'
trim() { sed 's/^[ \t]*//; s/[ \t]*$//'; }
# The value of the first field with that description in orlo's labelled JSON
# (-output jsontree), which writes one member a line: an element's description comes
# before its value.
field() {
  awk -v want="$1" '
    /^ *"description": / { d = $0; sub(/^ *"description": "/, "", d); sub(/",?$/, "", d) }
    /^ *"value": / && d == want { v = $0; sub(/^ *"value": "/, "", v); sub(/",?$/, "", v); print v; exit }'
}
attribute() { "$probe" show -ssd "$1" | sed -n "s/^$2=//p"; }
controller() { "$orlo" show -ssd "$1" ControllerNamespaceStructure=1 -output jsontree; }
failures=0
same() {
  if [ "$2" = "$3" ]; then echo "PASS $1: $2"; else echo "FAIL $1: orlo '$2', expected '$3'"; failures=$((failures + 1)); fi
}
holds() {
  case "$2" in *"$3"*) echo "PASS $1: '$2' holds '$3'" ;;
    *) echo "FAIL $1: orlo '$2', expected '$3'"; failures=$((failures + 1)) ;; esac
}

echo "-- the installed orlo"; "$orlo" help | head -5
echo "-- orlo show -ssd"; drives=$("$orlo" show -ssd); echo "$drives"
for listed in "Path: /dev/nvme0" "Path: /dev/sda" "Serial Number: $(trim </sys/class/nvme/nvme0/serial)" \
  "Model Number: $(trim </sys/class/nvme/nvme0/model)" "Firmware: $(trim </sys/class/nvme/nvme0/firmware_rev)" \
  "Serial Number: $(tail -c +5 /sys/block/sda/device/vpd_pg80 | tr -d '\0' | trim)" \
  "Serial Number: $sata_serial" "Model Number: $sata_model" "Firmware: $sata_firmware"; do
  same "listed $listed" "$(echo "$drives" | grep -c "^ *$listed\$")" 1
done
echo "-- orlo show -ssd /dev/nvme0 ControllerNamespaceStructure=1"
"$orlo" show -ssd /dev/nvme0 ControllerNamespaceStructure=1 | head -20
echo "-- orlo show -ssd /dev/sda"; "$orlo" show -ssd /dev/sda | head -24

nvme=/sys/class/nvme/nvme0
identify=$(controller /dev/nvme0)
same nvme-serial "$(echo "$identify" | field "Serial Number")" "$(trim <$nvme/serial)"
same nvme-model "$(echo "$identify" | field "Model Number")" "$(trim <$nvme/model)"
same nvme-firmware "$(echo "$identify" | field "Firmware Revision")" "$(trim <$nvme/firmware_rev)"
version=$(cat /tmp/nvme-version)
same nvme-version "$(printf '0x%08x' "$(echo "$identify" | field Version)")" "$version"
# The version flags are drive attributes, which only the probe shows.
major=$((version >> 16)); minor=$(((version >> 8) & 255))
for gate in 1.1 1.2 1.3 1.4 2.0; do
  want=False
  [ $((major * 256 + minor)) -ge $((${gate%.*} * 256 + ${gate#*.})) ] && want=True
  same "nvme-version-$gate" "$(attribute /dev/nvme0 "NVMe$(echo $gate | sed 's/\./Point/')OrGreater")" "$want"
done
same nvme-namespace "$(attribute /dev/nvme0n1 NamespaceId)" "$(trim </sys/block/nvme0n1/nsid)"
namespace=$("$orlo" show -ssd /dev/nvme0n1 -output jsontree)
sectors=$(trim </sys/block/nvme0n1/size)
same nvme-namespace-size "$(($(echo "$namespace" | field "Namespace Size") * $(trim </sys/block/nvme0n1/queue/logical_block_size)))" "$((sectors * 512))"

sata=/sys/block/sda/device
identify=$("$orlo" show -ssd /dev/sda -output jsontree)
same sata-serial "$(echo "$identify" | field "Serial Number")" "$(tail -c +5 $sata/vpd_pg80 | tr -d '\0' | trim)"
same sata-serial-given "$(echo "$identify" | field "Serial Number")" "$sata_serial"
# sysfs has only the SCSI inquiry's cut strings: the whole ones are the emulator's settings.
same sata-model "$(echo "$identify" | field "Model Number")" "$sata_model"
same sata-firmware "$(echo "$identify" | field "Firmware Version")" "$sata_firmware"
same sata-sysfs-model-cut "$(trim <$sata/model)" "$(printf '%.16s' "$sata_model")"
same sata-sysfs-firmware-cut "$(trim <$sata/rev)" "${sata_firmware#????}"
# The raw IDENTIFY DEVICE words: orlo shows them decoded, the probe as the drive sent them.
port=$(readlink -f $sata | grep -o 'ata[0-9]*' | head -1)
same sata-identify "$("$probe" identify -ssd /dev/sda | md5sum)" "$(md5sum </sys/class/ata_device/dev${port#ata}.0/id)"

for node in /dev/nvme0 /dev/sda; do
  image=/tmp/image-${node#/dev/}
  "$orlo" capture -ssd "$node" -image "$image"
  same "capture-exit-$node" "$?" 0
  echo "-- captured from $node:" $(ls "$image")
  # A controller node has no namespace of its own: its image is compared on the controller.
  structure=; [ "$node" = /dev/nvme0 ] && structure=ControllerNamespaceStructure=1
  same "replay-$node" "$("$orlo" show -ssd "$image" $structure -output jsontree | md5sum)" \
    "$("$orlo" show -ssd "$node" $structure -output jsontree | md5sum)"
  refused=$(su nobody -c "$orlo show -ssd $node" 2>&1)
  same "unprivileged-exit-$node" "$?" 1
  holds "unprivileged-message-$node" "$refused" "Reading a drive needs root."
done
same replay-nvme-serial "$(controller /tmp/image-nvme0 | field "Serial Number")" "$(trim <$nvme/serial)"
# Namespace 0 has no allocated namespace structure: the drive refuses, and so does its image.
refused=$("$orlo" show -ssd /dev/nvme0 NamespaceId=0; echo "exit $?")
echo "-- orlo show -ssd /dev/nvme0 NamespaceId=0: $refused"
same replay-refusal "$("$orlo" show -ssd /tmp/image-nvme0 NamespaceId=0; echo "exit $?")" "$refused"
holds refusal-exit "$refused" "exit 1"

# Health: the summary and the pages it reads, for each drive, with the temperature next to
# what hwmon reads (millidegrees, rounded to degrees as the drive's whole degrees are).
named() {
  awk -v want="$1" '
    /^ *"name": / { n = $0; sub(/^ *"name": "/, "", n); sub(/",?$/, "", n) }
    /^ *"value": / && n == want { v = $0; sub(/^ *"value": "/, "", v); sub(/",?$/, "", v); print v; exit }'
}
hwmon_celsius() {
  for sensor in /sys/class/hwmon/hwmon*; do
    [ "$(cat "$sensor/name")" = "$1" ] && [ -r "$sensor/temp1_input" ] || continue
    echo "$((($(cat "$sensor/temp1_input") + 500) / 1000)) °C"
    return
  done
}
for node in /dev/nvme0 /dev/sda; do
  log=SmartHealthInfo sensor=nvme; [ "$node" = /dev/sda ] && log=SmartAttributes sensor=drivetemp
  echo "-- orlo health -ssd $node"; "$orlo" health -ssd "$node"
  same "health-exit-$node" "$?" 0
  echo "-- orlo show -ssd $node LogName=$log"; "$orlo" show -ssd "$node" LogName=$log | head -40
  summary=$("$orlo" health -ssd "$node" -output jsontree)
  same "health-verdict-$node" "$(echo "$summary" | named Verdict)" Healthy
  celsius=$(hwmon_celsius $sensor)
  if [ -n "$celsius" ]; then
    same "health-temperature-$node-hwmon" "$(echo "$summary" | named Temperature)" "$celsius"
  else
    echo "-- no $sensor temperature in hwmon for $node"
  fi
  image=/tmp/image-${node#/dev/}
  same "health-replay-$node" "$("$orlo" health -ssd "$image" -output jsontree | md5sum)" "$(echo "$summary" | md5sum)"
done

# An incident report of both drives, and each drive played back from inside it, chosen by
# its serial number, in every format.
"$orlo" report -destination /tmp/ir.zip
same report-exit "$?" 0
for node in /dev/nvme0 /dev/sda; do
  serial=$sata_serial structure=
  [ "$node" = /dev/nvme0 ] && serial=$(trim <$nvme/serial) structure=ControllerNamespaceStructure=1
  for format in text json jsontree xml csv; do
    same "report-replay-$node-$format" "$("$orlo" show -ssd "/tmp/ir.zip:$serial" $structure -output $format | md5sum)" \
      "$("$orlo" show -ssd "$node" $structure -output $format | md5sum)"
  done
  same "report-health-$node" "$("$orlo" health -ssd "/tmp/ir.zip:$serial" | md5sum)" "$("$orlo" health -ssd "$node" | md5sum)"
done

# Fleet metrics: both drives up, each with its serial number.
metrics=$("$orlo" metrics)
echo "-- orlo metrics"; echo "$metrics" | grep -v '^#'
same metrics-drives-up "$(echo "$metrics" | grep -c '^orlo_drive_up{.*} 1$')" 2
holds metrics-nvme "$metrics" "serial=\"$(trim <$nvme/serial)\""
holds metrics-sata "$metrics" "serial=\"$sata_serial\""
echo "failures=$failures"
SH

(cd "$root" && find . | cpio -o -H newc --quiet | gzip -1) >"$work/initramfs.gz"

echo "== booting the VM"
truncate -s 64M "$work/nvme.img" "$work/sata.img"
booted=$(date +%s)
timeout 600 qemu-system-x86_64 -machine pc -accel tcg -m 512 -smp 1 -nographic -no-reboot \
  -kernel "$kernel" -initrd "$work/initramfs.gz" \
  -append "console=ttyS0 quiet panic=-1 rdinit=/init" \
  -drive "file=$work/nvme.img,if=none,id=nvm,format=raw" -device nvme,serial=ORLONVME0001,drive=nvm \
  -drive "file=$work/sata.img,if=none,id=disk,format=raw" -device ahci,id=ahci \
  -device "ide-hd,drive=disk,bus=ahci.0,serial=$sata_serial,model=$sata_model,ver=$sata_firmware" \
  </dev/null >"$work/console.log" 2>&1 || true
finished=$(date +%s)

sed -n '/== begin/,/^== end/p' "$work/console.log" | tr -d '\r' | sed 's/.*== begin/== begin/'
echo "== build (if any), install and pack $((booted - started)) s, VM $((finished - booted)) s"
if ! grep -q '^failures=0' "$work/console.log"; then
  echo "qemu-check: FAILED" >&2
  grep -q '== begin' "$work/console.log" || tail -40 "$work/console.log" >&2
  exit 1
fi
echo "qemu-check: passed"
