#!/usr/bin/env bash
# Installs what is missing, builds the program, makes a sample project and shows every command on
# it. What it writes stays in build/demo.
set -euo pipefail
cd "$(dirname "$0")"

cmake/install-dependencies.sh
mkdir -p build
preset=${VARDEX_PRESET:-release}
log=build/demo-build.log
echo "demo: building the program"
if ! { cmake --preset "$preset" &&
  cmake --build --preset "$preset" --target scanhost; } >"$log" 2>&1
then
  cat "$log" >&2
  echo "demo: the build failed" >&2
  exit 1
fi

program=$PWD/build/$preset/bin/scanhost
demo=$PWD/build/demo
rm -rf "$demo"
mkdir -p "$demo"
cd "$demo"

section() { printf '\n== %s ==\n' "$1"; }
# Shows a command line as one would type it, and runs it.
run() {
  printf '\n$ scanhost'
  printf ' %s' "$@"
  printf '\n'
  "$program" "$@"
}
# The same, showing the first lines alone.
run_head() {
  local lines=$1 output
  shift
  printf '\n$ scanhost'
  printf ' %s' "$@"
  printf ' | head -n %s\n' "$lines"
  output=$("$program" "$@")
  head -n "$lines" <<<"$output"
}

section 'The module, loaded as a shared library'
run --version

section 'The manual page, made of the declared commands and options'
run_head 4 --manual

section 'A simulated project: two rooms, two stances, one walk'
run sample .

section 'What the project and its scans hold'
run info project.json --project-output project-output.txt
printf '\n$ cat project-output.txt\n'
cat project-output.txt

section 'The same for programs'
run_head 25 info room-a.ptx --json

section 'One point: on a wall of room A'
run point room-a.ptx --row 30 --col 135

section 'Host commands while the project is selected'
run commands project.json

section 'Times of the points, loaded and dropped again'
run times walk.las --drop

section 'Where the scanner was: standing still from 9 s to 11 s'
run where walk.las --at 0 4.5 9 10 11 32

section 'The stretch of path through the door, and when that was'
run path walk.las --from-time 13.5 --to-time 14.5
run near walk.las --point 431206.1,5412302.55,313.6 --within 0.5

section 'The points in the order in which they were measured'
run sort walk.las -o walk-sorted.las
run times walk-sorted.las --trajectory walk.txt

section 'Pictures: plan, side, panorama, points over time, path over time'
run picture project.json -o plan.png --width 640
run picture project.json --side --color reflection -o side.pdf
run picture room-a.ptx --panorama --color range -o panorama.png
run picture walk.las --times -o times.svg
run picture walk.las --path -o path.pdf
printf '\nThe pictures lie here:\n'
printf '%s\n' "$demo"/*.png "$demo"/*.svg "$demo"/*.pdf

section 'A page for a browser'
run view project.json -o house.html
printf '%s\n' "$demo/house.html"
if python3 -B ../../tests/view/screenshot.py house.html house-page.png; then
  printf '%s\n' "$demo/house-page.png"
fi

section 'Round trip: the exported trajectory, read back, has the same poses to 1e-9'
run export walk.las -o walk-exported.txt --verify
run where walk.las --at 4.5 --trajectory walk-exported.txt
