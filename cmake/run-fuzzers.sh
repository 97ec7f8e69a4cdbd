#!/usr/bin/env bash
# Runs every fuzz target of the preset "fuzz" from seeds that the project makes. Fails with the
# fuzzer's report when one finds a fault; the input stays in build/fuzz/findings.
#
#   cmake/run-fuzzers.sh [SECONDS]    for each target; default 30
set -euo pipefail
cd "$(dirname "$0")/../build/fuzz"
seconds=${1:-30}
bin/fuzz_seeds seeds
mkdir -p findings corpus

run() {
  local target=$1 name log
  name=$(basename "$target")
  name=${name#fuzz_}
  log=findings/$name.log
  mkdir -p "corpus/$name"
  if ! "$target" -max_total_time="$2" -rss_limit_mb=2048 -artifact_prefix="findings/$name-" \
    "corpus/$name" "seeds/$name" >"$log" 2>&1; then
    cat "$log" >&2
    return 1
  fi
  echo "fuzzed $name: $(grep -oE '^#[0-9]+' "$log" | tail -n 1 | tr -d '#') runs"
}
export -f run
find bin -name 'fuzz_*' ! -name fuzz_seeds | LC_ALL=C sort |
  xargs -P "$(nproc)" -I{} bash -euo pipefail -c "run {} $seconds"
