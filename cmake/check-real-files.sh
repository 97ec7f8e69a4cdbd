#!/usr/bin/env bash
# Runs the program over real scan files and holds what it prints against facts that other readers
# found in them.
#
#   cmake/check-real-files.sh PROGRAM FOLDER    FOLDER has the files and their facts.json
set -euo pipefail
program=$1
folder=$2
facts=$folder/facts.json
failures=0
checked=0

fail() {
  echo "check-real-files: $1" >&2
  failures=$((failures + 1))
}

# holds FILE CONDITION JSON: the jq condition over the program's answer ($a) and the file's facts ($f)
holds() {
  checked=$((checked + 1))
  jq -e --arg n "$1" --slurpfile facts "$facts" \
    "def near(\$x; \$y; \$by): (\$x - \$y) | fabs <= \$by;
     . as \$a | (\$facts[0][] | select(.file == \$n)) as \$f | $2" <<<"$3" >/dev/null || fail "$1: $2"
}

for file in $(jq -r '.[] | select(.points) | .file' "$facts"); do
  answer=$("$program" info "$folder/$file" --json 2>/dev/null) || { fail "$file: info"; continue; }
  holds "$file" '$a.scans[0].points == $f.points' "$answer"
  holds "$file" '[range(3) | near($a.scans[0].bounds.min[.]; $f.min[.]; $f.scale[.] + 0.001) and
    near($a.scans[0].bounds.max[.]; $f.max[.]; $f.scale[.] + 0.001)] | all' "$answer"
  holds "$file" '[$a.scans[0].reflection.min, $a.scans[0].reflection.max] == $f.intensity' "$answer"
done
for file in $(jq -r '.[] | select(.scans) | .file' "$facts"); do
  answer=$("$program" info "$folder/$file" --json 2>/dev/null) || { fail "$file: info"; continue; }
  holds "$file" '[$a.scans[].points] == [$f.scans[].valid]' "$answer"
  holds "$file" '[$a.scans[].cellsWithoutReturn] == [$f.scans[].no_return]' "$answer"
  holds "$file" '[range(3) | near($a.scans[0].bounds.min[.]; $f.scans[0].world_min[.]; 0.05) and
    near($a.scans[0].bounds.max[.]; $f.scans[0].world_max[.]; 0.05)] | all' "$answer"
done

# The points of the walk were simulated along this trajectory.
walk=$folder/simulated-walk.las
file=freiburg1_xyz-rgbdslam.txt
with=(--trajectory "$folder/$file" --json)
oracle=$(jq -c --arg n "$file" '.[] | select(.file == $n) | .oracle' "$facts")
holds "$file" '$a.nodes == $f.poses' "$("$program" export "$walk" "${with[@]}" 2>/dev/null)"
node=$(jq -c 'to_entries[] | select(.key | startswith("position_at_node")).value' <<<"$oracle")
holds "$file" "$node as \$node | \$a.positions[0] | [.x, .y, .z] | . as \$p |
  [range(3) | near(\$p[.]; \$node.answer[.]; 0.0001)] | all" \
  "$("$program" where "$walk" --at "$(jq .scan_time <<<"$node")" "${with[@]}" 2>/dev/null)"
holds "$file" '$a.count == $f.oracle["select_0.25_0.5"].after_duplicate_filter' \
  "$("$program" path "$walk" --from 0.25 --to 0.5 "${with[@]}" 2>/dev/null)"

[ "$failures" -eq 0 ] || exit 1
echo "check-real-files: $checked facts hold"
