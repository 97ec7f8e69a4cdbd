#!/usr/bin/env bash
# Runs clang-tidy over every source file, or over the files named. Configures the preset "tidy" for
# the compile commands; a file that is in none of them is forgotten and fails the check.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset tidy >/dev/null
if [ $# -gt 0 ]; then
  sources=("$@")
else
  # The project of tests/install is somebody else's: no target here compiles it.
  mapfile -t sources < <(git ls-files '*.cpp' ':!tests/install')
fi
for source in "${sources[@]}"; do
  grep -qF "\"$PWD/$source\"" build/tidy/compile_commands.json ||
    { echo "check-tidy: no target builds $source" >&2; exit 1; }
done
status=0
printf '%s\n' "${sources[@]}" |
  xargs -P "$(nproc)" -n 1 clang-tidy-14 -p build/tidy --quiet 2>&1 |
  { grep --line-buffered -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter' || true; } ||
  status=$?
if [ "$status" -ne 0 ]; then
  echo 'check-tidy: see the reports above' >&2
  exit 1
fi
echo "check-tidy: ${#sources[@]} files are clean"
