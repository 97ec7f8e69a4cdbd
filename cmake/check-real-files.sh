#!/usr/bin/env bash
# Runs the program over real scan files and holds what it prints against facts that other readers
# found in them.
#
#   cmake/check-real-files.sh PROGRAM FOLDER    FOLDER has the files and their facts.json; las_records
#                                               lies next to the program
set -euo pipefail
program=$1
folder=$2
records=$(dirname "$program")/las_records
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

# Compressed files: their records are those of a plain twin, or those that another reader decoded,
# and come out with the same bytes when they are encoded again. Sorted and compressed they are those
# of the sorted plain file.
sum() { "$records" "$1" | sha256sum | cut -d' ' -f1; }
compressed() {
  local file=$1 expected=$2
  [ -f "$folder/$file" ] || return 0
  checked=$((checked + 2))
  [ "$(sum "$folder/$file")" = "$expected" ] || fail "$file: records"
  "$records" "$folder/$file" --again || fail "$file: encoded again"
}
twin() {
  [ -f "$folder/$2" ] || return 0
  compressed "$1" "$(sum "$folder/$2")"
}
for known in '{"chunks": 3, "chunkSize": 50000} laz-chunks.laz' \
  '{"chunks": 65, "chunkSize": null} laz-varying.laz' \
  '{"chunks": 1, "chunkSize": null} laz-simple-v1.laz' 'null laz-simple.las'; do
  answer=$("$program" info "$folder/${known##* }" --json 2>/dev/null || true)
  checked=$((checked + 1))
  jq -e --argjson known "${known% *}" '.scans[0].las.compression == $known' <<<"$answer" >/dev/null ||
    fail "${known##* }: compression"
done
twin laz-simple.laz laz-simple.las
twin laz-simple-v1.laz laz-simple.las
twin laz-extrabytes.laz laz-extrabytes.las
twin laz-varying.laz laz-varying.las
twin laz-test1_4.laz test1_4.las
compressed laz-chunks.laz bdfabc2b524cf3328d647fd6e798f221c4ce51ef1f81ac9418244646b258423b
for file in laz-rules-A.laz laz-rules-B.laz; do
  compressed $file 14ca14eb770a2a8526cc0589c744c4d954b9b4ce803abfa6447aca90363d74a5
done
for file in laz-rules-C.laz laz-rules-D.laz; do
  compressed $file 750c32573cf9cbdd28635cb4ac2b2c0237a03eb867401b598bbdb90dd94372c3
done
compressed laz-rules-E.laz fdad603d3f734ba29d4946c04fc3a9b415f2a702046188cdbf8aa3ea3d42e4e6
compressed laz-rules-J.laz c2d430c8a3d55f6fe089ba392e2f81af4c2b23c7e2d04ab4df19474407e5cac1
sorted=$(mktemp -d)
trap 'rm -rf "$sorted"' EXIT
for extension in las laz; do
  "$program" sort "$walk" -o "$sorted/walk.$extension" >/dev/null 2>&1 || fail "sort to .$extension"
done
checked=$((checked + 1))
[ "$(sum "$sorted/walk.las")" = "$(sum "$sorted/walk.laz")" ] || fail "sorted and compressed"

[ "$failures" -eq 0 ] || exit 1
echo "check-real-files: $checked facts hold"
