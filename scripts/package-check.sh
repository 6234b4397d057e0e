#!/usr/bin/env bash
# Builds orlo's Debian package and checks it on a fresh Debian 12, as root:
#
#   bash scripts/package-check.sh
#
# In a throwaway Debian 12 root made by ../shared/fresh-machine (FRESH_MACHINE=DIR for
# another place), on a clone of the committed HEAD, it installs the build's packages,
# builds the package with cpack, purges every package the build brought so that the
# machine is fresh again, installs the package with `apt-get install ./orlo_*.deb` and
# runs what a user would: `orlo help`, the main job on a copy of the sample incident
# report, `orlo show` on both bundled device images, the manual page (man-db installed
# for it) and the bash completion (with bash-completion). It prints its time at the end.
#
# With --in-fresh-root it does the check on the machine it runs on, where it purges
# packages: that is for the throwaway root only.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ "${1:-}" != --in-fresh-root ]; then
  [ "$#" -eq 0 ] || { echo "usage: scripts/package-check.sh" >&2; exit 2; }
  start=$(date +%s)
  status=0
  "${FRESH_MACHINE:-../shared/fresh-machine}/run.sh" . \
    'bash scripts/package-check.sh --in-fresh-root' 3600 || status=$?
  echo "package-check: exit status $status after $(($(date +%s) - start)) s"
  exit "$status"
fi

start=$(date +%s)
export DEBIAN_FRONTEND=noninteractive
step() { printf '\n== %s\n' "$*"; }
fail() {
  echo "package-check: FAILED: $*" >&2
  exit 1
}
installed() { dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' | awk '$1 == "ii" { print $2 }' | sort; }
work=$(mktemp -d)

step "Packages of the fresh machine"
installed >"$work/packages-fresh"
wc -l <"$work/packages-fresh"

step "Build packages, and dpkg-dev and file for the package's dependencies"
bash scripts/setup.sh
apt-get install -y -qq --no-install-recommends dpkg-dev file </dev/null >/dev/null

step "Build and package"
cmake -S . -B build-package -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORLO_TESTS=OFF >/dev/null
cmake --build build-package -j "$(nproc)"
(cd build-package && cpack -G DEB)
version=$(sed -n 's/^project(orlo VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
deb=build-package/orlo_${version}_amd64.deb
[ -f "$deb" ] || fail "cpack made no $deb"
dpkg-deb --info "$deb"
dpkg-deb --contents "$deb" | awk '{ print $6 }' | sed 's|^\./|/|' >"$work/contents"
grep -qx /usr/libexec/orlo/powershell "$work/contents" || fail "the package has no provider"
for folder in /usr/bin /usr/sbin /bin /sbin /usr/local/bin; do
  grep "^$folder/." "$work/contents" || true
done >"$work/on-path"
[ "$(cat "$work/on-path")" = /usr/bin/orlo ] ||
  fail "the package puts more than orlo on the PATH: $(tr '\n' ' ' <"$work/on-path")"

step "Back to a fresh machine: every package that the build brought is purged"
installed >"$work/packages-built"
comm -13 "$work/packages-fresh" "$work/packages-built" >"$work/packages-brought"
xargs apt-get purge -y -qq --autoremove <"$work/packages-brought" >/dev/null
installed >"$work/packages-now"
diff "$work/packages-fresh" "$work/packages-now" || fail "packages differ from the fresh machine's"
echo "purged $(wc -l <"$work/packages-brought") packages"

step "apt-get install ./orlo_${version}_amd64.deb"
(cd build-package && apt-get install -y -qq "./orlo_${version}_amd64.deb" </dev/null)
comm -13 "$work/packages-fresh" <(installed) | tr '\n' ' '
echo

# Everything below runs as a user would, in a folder of their own and with the PATH of a
# login shell.
cd "$work"

step "orlo help"
[ "$(command -v orlo)" = /usr/bin/orlo ] || fail "orlo is not /usr/bin/orlo"
! command -v powershell || fail "powershell is on the PATH"
orlo help >help.txt
head -3 help.txt
grep -q "^Command: UpdateIncidentReport" help.txt || fail "orlo help lists no update"

step "orlo update on a copy of the sample incident report"
cp /usr/share/orlo/samples/incident-report.zip report.zip
! grep -q drive-notes.txt report.zip || fail "the sample report holds drive-notes.txt already"
orlo update -source /usr/share/orlo/samples/drive-notes.txt -destination report.zip | tee update.txt
grep -q "^Result: Successfully updated" update.txt || fail "the update did not say it succeeded"

step "orlo show on the bundled device images"
orlo show -ssd /usr/share/orlo/images/nvme-tamsel-t2 ControllerNamespaceStructure=1 >nvme.txt
grep "Model Number" nvme.txt
grep -q "Model Number \[Byte 24-63\]: Tamsel T2" nvme.txt || fail "no NVMe model number"
orlo show -ssd /usr/share/orlo/images/sata-corvid-s300 -output csv >sata.csv
grep "Model Number" sata.csv
grep -q "Corvid S300" sata.csv || fail "no SATA model number"

step "unzip, man-db and bash-completion, to look at what orlo made and installed"
apt-get install -y -qq --no-install-recommends unzip man-db bash-completion </dev/null >/dev/null
unzip -l report.zip
unzip -tq report.zip
unzip -p report.zip drive-notes.txt | cmp - /usr/share/orlo/samples/drive-notes.txt ||
  fail "the archive does not hold the file added"

step "man orlo"
man --warnings -l /usr/share/man/man1/orlo.1.gz 2>man-warnings.txt >/dev/null
[ ! -s man-warnings.txt ] || fail "groff warns: $(cat man-warnings.txt)"
MANWIDTH=80 man orlo >man.txt
sed -n '1,12p' man.txt
# The page shows every command as orlo help does: each synopsis, however it is filled.
tr -s ' \n' '  ' <man.txt >man-words.txt
sed -n 's/^  Synopsis: //p' help.txt | while IFS= read -r synopsis; do
  grep -qF -- "$(tr -s ' ' <<<"$synopsis")" man-words.txt || fail "man orlo lacks: $synopsis"
done
echo "man orlo shows the $(grep -c '^  Synopsis: ' help.txt) synopses of orlo help"

step "bash completion"
# As an interactive shell gets it: bash-completion loads the script on first use.
completion=$(
  bash -c 'source /usr/share/bash-completion/bash_completion
    _completion_loader orlo
    complete -p orlo
    for line in "orlo sh" "orlo show LogName=M" "orlo show -ssd /usr/share/orlo/images/n"; do
      COMP_LINE=$line COMP_POINT=${#line} COMPREPLY=()
      _orlo orlo
      echo "$line -> ${COMPREPLY[*]}"
    done'
)
echo "$completion"
expected="complete -F _orlo orlo
orlo sh -> show
orlo show LogName=M -> MarketingDescription
orlo show -ssd /usr/share/orlo/images/n -> /usr/share/orlo/images/nvme-tamsel-t2"
[ "$completion" = "$expected" ] || fail "the completion does not offer what was expected"

step "package-check passed in $(($(date +%s) - start)) s"
