#!/usr/bin/env bash
# Installs what is missing, builds everything and runs the tests.
#
# VARDEX_PRESET names the preset to build, release when it is not set.
set -euo pipefail
cd "$(dirname "$0")"
preset=${VARDEX_PRESET:-release}

cmake/install-dependencies.sh
mkdir -p build
log=build/test-$preset.log
echo "test: building the preset $preset"
if ! { cmake --preset "$preset" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "test: the build failed" >&2
  exit 1
fi
ctest --test-dir "build/$preset" --output-on-failure -j2
