#!/usr/bin/env bash
# Installs the build, moves what was installed, and uses it from there: the program, both CMake
# packages from somebody else's project, and the host's package as what the module is built against.
#
#   check-install.sh SOURCE BUILD COMPILER
set -euo pipefail
source=$(readlink -f "$1")
build=$(readlink -f "$2")
compiler=$3
work=$(readlink -f "$(mktemp -d)")
trap 'rm -rf "$work"' EXIT
export CMAKE_BUILD_PARALLEL_LEVEL=2

fail() {
  echo "check-install: $*" >&2
  exit 1
}
# quietly COMMAND...: its output matters only when it fails
quietly() {
  "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; fail "failed: $*"; }
}

quietly cmake --install "$build" --prefix "$work/first" --strip
mv "$work/first" "$work/moved"
prefix=$work/moved

if grep -rlF -e "$source" -e "$build" -e "$work/first" "$prefix"; then
  fail 'the files above name a folder of the machine that built them'
fi
[ -z "$(find "$prefix" -name 'libhost*' ! -path '*/vardexscandata/*')" ] ||
  fail 'the stand-in lies where others look for libraries'

# The program, its texts and its licence.
cd "$work"
version=$("$prefix/bin/scanhost" --version)
[ "${version%% *}" = VardexScandata ] || fail "scanhost --version: $version"
quietly "$prefix/bin/scanhost" sample sample
quietly "$prefix/bin/scanhost" times sample/walk.las
"$prefix/bin/scanhost" --manual | cmp - "$prefix/share/man/man1/scanhost.1"
bash -n "$prefix/share/bash-completion/completions/scanhost"
grep -q 'command.*complete\|complete .*scanhost' "$prefix/share/bash-completion/completions/scanhost"
cmp "$source/LICENSE" "$prefix/share/doc/vardexscandata/copyright"

# Somebody else's project.
generator=(-G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Debug
  -DCMAKE_PREFIX_PATH="$prefix")
quietly cmake -S "$source/tests/install/consumer" -B consumer "${generator[@]}"
quietly cmake --build consumer
module=$(find "$prefix" -name VardexScandata.so)
quietly consumer/loads_module "$module"
quietly consumer/uses_module

# The module alone, against the installed host. It must not find the host of this repository.
quietly cmake -S "$source" -B module "${generator[@]}" -DVARDEX_STAND_IN=OFF \
  -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
if grep -F "$source/host" module/compile_commands.json; then
  fail 'the module is built with the headers of this repository, not with the installed ones'
fi
quietly cmake --build module
quietly consumer/loads_module module/bin/VardexScandata.so
echo 'check-install: the installed files work from another place'
