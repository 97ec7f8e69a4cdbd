#!/usr/bin/env bash
# Times scanhost in turns with pdal, where that is on the path, and prints medians of the wall time
# and their ratios. Without pdal it prints what scanhost takes.
#
#   bench/compare.sh FILE...     points files; a trajectory next to them as scanhost wants it
#
# SCANHOST is the program (build/release/bin/scanhost), ROUNDS how often each command runs (5).
# A dash stands for a command that fails, such as a question about the path of a scan without one.
set -euo pipefail
scanhost=${SCANHOST:-$(dirname "$0")/../build/release/bin/scanhost}
rounds=${ROUNDS:-5}
[ $# -gt 0 ] || { sed -n '2,8s/^# \{0,1\}//p' "$0" >&2; exit 2; }
[ -x "$scanhost" ] || { echo "compare: no program $scanhost" >&2; exit 2; }
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

# seconds COMMAND...: its wall time, or a dash
seconds() {
  local start=$EPOCHREALTIME
  if "$@" >/dev/null 2>&1; then
    LC_ALL=C awk -v a="${start/,/.}" -v b="${EPOCHREALTIME/,/.}" 'BEGIN { printf "%.3f\n", b - a }'
  else
    echo -
  fi
}

# median FILE: of the numbers in it; a dash when there is one
median() {
  if [ ! -s "$1" ] || grep -qx -- - "$1"; then
    echo -
  else
    LC_ALL=C sort -n "$1" | awk '{ v[NR] = $1 }
      END { printf "%.3f\n", (v[int((NR + 1) / 2)] + v[int(NR / 2) + 1]) / 2 }'
  fi
}

# The work, the arguments of scanhost, those of pdal; FILE and OUT stand for themselves.
table='info|info FILE|info --stats FILE
where|where FILE --at 1|
near|near FILE --point 0,0,0 --within 5|
path|path FILE|
sort|sort FILE -o OUT/a.las|translate FILE OUT/b.las sort --filters.sort.dimension=GpsTime'

# run PROGRAM ARGUMENTS FILE
run() {
  local arguments
  read -ra arguments <<<"$2"
  arguments=("${arguments[@]/#FILE/$3}")
  seconds "$1" "${arguments[@]/#OUT/$out}"
}

pdal=$(command -v pdal || true)
[ -n "$pdal" ] || echo 'compare: no pdal on the path' >&2
echo '| file | work | scanhost [s] | pdal [s] | ratio |'
echo '|---|---|---|---|---|'
for file in "$@"; do
  [ -r "$file" ] || { echo "compare: cannot read $file" >&2; exit 2; }
  while IFS='|' read -r work ours theirs; do
    rm -f "$out"/*
    for ((round = 0; round < rounds; ++round)); do
      run "$scanhost" "$ours" "$file" >>"$out/ours"
      [ -z "$pdal" ] || [ -z "$theirs" ] || run "$pdal" "$theirs" "$file" >>"$out/theirs"
    done
    a=$(median "$out/ours")
    b=$(median "$out/theirs")
    ratio=$(LC_ALL=C awk -v a="$a" -v b="$b" \
      'BEGIN { if (a != "-" && b + 0 > 0) printf "%.2f", a / b; else printf "-" }')
    echo "| $(basename "$file") | $work | $a | $b | $ratio |"
  done <<<"$table"
done
