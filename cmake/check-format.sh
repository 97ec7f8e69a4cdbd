#!/usr/bin/env bash
# Fails when a C++ or JavaScript file is not formatted as .clang-format says, or a text file has stray blanks.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t sources < <(git ls-files '*.h' '*.cpp' '*.js')
clang-format-14 --dry-run -Werror "${sources[@]}"
if git grep -nIE '[[:blank:]]+$' -- '*.h' '*.cpp' '*.cmake' '*CMakeLists.txt' '*.sh' '*.md' '*.json' \
  '*.js' '*.css' '*.html' '*.py'; then
  echo 'check-format: the lines above end in blanks' >&2
  exit 1
fi
# clang-format leaves comments alone.
if grep -nHE '^.{101,}' "${sources[@]}"; then
  echo 'check-format: the lines above have more than 100 columns' >&2
  exit 1
fi
echo "check-format: ${#sources[@]} files are formatted"
