#!/usr/bin/env bash
# Installs the Debian packages that the build needs and this machine lacks. Says nothing and needs
# no rights when they are all there.
#
#   cmake/install-dependencies.sh [lint]    lint: what the other checks of .ci/run need as well
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config python3
  libgtest-dev libgmock-dev libbenchmark-dev
  libjsoncpp-dev libcairo2-dev fonts-dejavu-core libcli11-dev libtbb-dev
  libfmt-dev libutfcpp-dev libhowardhinnant-date-dev libjs-three poppler-utils
)
if [ "${1:-}" = lint ]; then
  packages+=(chromium clang-14 clang-format-14 clang-tidy-14 debootstrap dpkg-dev git jq
    libclang-rt-14-dev node-typescript python3-clang-14)
fi

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "install-dependencies: no apt-get here; these packages or their like are needed:" \
    "${packages[*]}" >&2
  exit 0
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

echo "install-dependencies: installing ${missing[*]}" >&2
asRoot=()
if [ "$(id -u)" -ne 0 ]; then
  asRoot=(sudo)
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${asRoot[@]}" apt-get update -qq &&
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "install-dependencies: the packages could not be installed" >&2
  exit 1
fi
