#!/usr/bin/env bash
# Runs the tests under valgrind's memcheck: no invalid access, no use of undefined values, no memory
# that is definitely lost. Not the test that counts what the module leaves in the process: valgrind's
# own memory would count. For a build without sanitizers; takes many minutes. Needs valgrind.
#
#   cmake/check-valgrind.sh [BUILD]    default: build/dev
set -euo pipefail
cd "$(dirname "$0")/.."
bin=${1:-build/dev}/bin
status=0
for tests in host_framework host_service formats core object load fault; do
  log=$(mktemp)
  if valgrind --quiet --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite \
    --show-leak-kinds=definite --suppressions=cmake/valgrind.supp \
    "$bin/${tests}_tests" >"$log" 2>&1; then
    echo "valgrind: $tests, $(grep -oE '[0-9]+ tests? from' "$log" | head -n 1 | grep -oE '[0-9]+') tests clean"
  else
    cat "$log" >&2
    status=1
  fi
  rm "$log"
done
exit "$status"
