#!/usr/bin/env bash
# Runs the benchmarks whose ratios docs/benchmarks.md notes, and fails when one is more than 30 %
# above the ratio noted there. For a quiet machine, by hand, before a release: no test runs it.
#
#   bench/check.sh [PROGRAMS] [REPETITIONS]    PROGRAMS: folder of the benchmarks (build/bench/bin)
#                                              REPETITIONS: of each, in random order (7)
#
# A row of the document counts when it has these five columns, the middle three in backquotes:
#   | operation | program | case | baseline | ratio |
set -euo pipefail
cd "$(dirname "$0")/.."
programs=${1:-build/bench/bin}
repetitions=${2:-7}
slack=1.3

# PROGRAM<tab>CASE<tab>BASELINE<tab>RATIO
noted=$(awk -F' *[|] *' 'NF == 7 && $3 ~ /^`.*`$/ && $4 ~ /^`.*`$/ && $5 ~ /^`.*`$/ && $6 + 0 > 0 {
  for (i = 3; i <= 5; ++i) gsub(/`/, "", $i)
  printf "%s\t%s\t%s\t%s\n", $3, $4, $5, $6 }' docs/benchmarks.md)
[ -n "$noted" ] || { echo 'check: docs/benchmarks.md has no ratio' >&2; exit 2; }

# medians PROGRAM NAME...: NAME<tab>NANOSECONDS of each benchmark
medians() {
  local program=$1 names
  shift
  names=$(printf '%s\n' "$@" | sed 's/[][\.*+?(){}^$|]/\\&/g' | paste -sd '|')
  "$programs/$program" --benchmark_filter="^($names)\$" --benchmark_format=csv \
    --benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true \
    --benchmark_report_aggregates_only=true 2>/dev/null |
    awk -F'"' '$2 ~ /_median$/ {
      name = substr($2, 1, length($2) - 7)
      split($3, column, ",")  # iterations, real time, processor time, unit
      factor = column[5] == "s" ? 1e9 : column[5] == "ms" ? 1e6 : column[5] == "us" ? 1e3 : 1
      wall = name ~ /\/(manual|real)_time$/
      printf "%s\t%.1f\n", name, (wall ? column[3] : column[4]) * factor }'
}

status=0
printf '%-8s %-8s %s\n' measured noted case
while read -r program; do
  mapfile -t names < <(awk -F'\t' -v p="$program" '$1 == p { print $2; print $3 }' <<<"$noted" |
    sort -u)
  times=$(medians "$program" "${names[@]}") || { echo "check: $program failed" >&2; exit 2; }
  awk -F'\t' -v program="$program" -v slack="$slack" '
    NR == FNR { time[$1] = $2; next }
    $1 != program { next }
    !($2 in time) || !($3 in time) { print "check: not in " program ": " $2 " or " $3; bad = 1; next }
    { ratio = time[$2] / time[$3]
      late = ratio > $4 * slack
      bad = bad || late
      printf "%-8.3f %-8s %s %s%s\n", ratio, $4, program, $2, late ? "  TOO SLOW" : "" }
    END { exit bad }' <(echo "$times") <(echo "$noted") || status=1
done < <(cut -f1 <<<"$noted" | sort -u)
exit "$status"
