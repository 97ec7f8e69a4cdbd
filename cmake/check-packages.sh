#!/usr/bin/env bash
# Makes the Debian packages, installs them in a clean Debian root, uses what they brought, removes
# them, and sees that nothing stays. Skipped with a word where there is no debootstrap or no root
# rights. The packages of the system come from where this machine's apt gets them.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "$(id -u)" -ne 0 ] || ! command -v debootstrap >/dev/null || ! command -v cpack >/dev/null; then
  echo 'check-packages: skipped: it needs root rights, cpack and debootstrap'
  exit 0
fi

fail() {
  echo "check-packages: $*" >&2
  exit 1
}
work=$(mktemp -d)
root=$work/root
trap 'umount "$root/proc" 2>/dev/null || true; rm -rf --one-file-system "$work"' EXIT
# quietly COMMAND...: its output matters only when it fails
quietly() {
  "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; fail "failed: $*"; }
}

quietly cmake --preset package
quietly cmake --build --preset package
rm -f build/package/*.deb
quietly cpack --preset package

codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
mirror=$(apt-get indextargets --format '$(REPO_URI) $(CODENAME) $(COMPONENT)' "Created-By: Packages" |
  awk -v c="$codename" '$2 == c && $3 == "main" { print $1; exit }')
[ -n "$mirror" ] || fail "apt knows no archive of $codename"
skip() {
  echo "check-packages: packages made; skipped to install them: $*"
  exit 0
}
debootstrap --variant=minbase "$codename" "$root" "$mirror" >"$work/log" 2>&1 ||
  skip "no clean root could be made ($(tail -n 1 "$work/log"))"
mount -t proc proc "$root/proc" 2>"$work/log" || skip "$(cat "$work/log")"
mkdir "$root/packages"
cp build/package/*.deb "$root/packages"
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
  DEBIAN_FRONTEND=noninteractive "$@"; }
install=(apt-get install -y -qq --no-install-recommends)
# Everything but what apt and dpkg keep for themselves. Removing packages rewrites the linker's cache.
content() {
  (cd "$root" && find . -xdev \( -path ./proc -o -path ./packages -o -path ./var/cache -o \
    -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./var/log -o -path ./tmp \) -prune -o -print) |
    LC_ALL=C sort
}

# A host's user: the program and what it depends on.
content >"$work/before"
quietly inside sh -c "${install[*]} /packages/scanhost_*.deb /packages/vardexscandata_*.deb"
quietly inside sh -c 'cd /tmp && scanhost --version && scanhost sample s && scanhost times s/walk.las &&
  scanhost picture s/project.json -o plan.pdf'
[ -z "$(inside sh -c 'ldconfig -p | grep -i -e libhost -e vardex')" ] ||
  fail 'the system offers the libraries of the private folder to everybody'
quietly inside sh -c 'ldd /usr/bin/scanhost | grep "not found" && exit 1 || exit 0'
quietly inside apt-get purge -y -qq scanhost vardexscandata
quietly inside apt-get autoremove --purge -y -qq
content >"$work/after"
diff "$work/before" "$work/after" || fail 'the files above stayed or went with the packages'

# A developer: a project of its own, built against the packages.
cp -r tests/install/consumer "$root/packages"
quietly inside sh -c "${install[*]} /packages/vardexscandata*.deb g++ cmake make"
quietly inside sh -c 'cmake -S /packages/consumer -B /tmp/consumer && cmake --build /tmp/consumer &&
  /tmp/consumer/uses_module && /tmp/consumer/loads_module /usr/lib/*/vardexscandata/VardexScandata.so'
quietly inside apt-get purge -y -qq vardexscandata vardexscandata-dev
[ -z "$(cd "$root" && find usr etc var/lib/dpkg/info -iname '*vardex*')" ] ||
  fail 'the development files stayed'
echo "check-packages: $(cd build/package && echo *.deb): installed, used and removed"
