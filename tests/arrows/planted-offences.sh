#!/usr/bin/env bash
# Plants one offence at a time in a small tree and sees whether check-arrows names its line; then
# plants includes that are allowed, which it must leave alone.
set -euo pipefail
check=$(readlink -f "$1")
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cd "$tree"

write() { mkdir -p "$(dirname "$1")"; printf '#pragma once\n%s\n' "$2" >"$1"; }
for room in host vardex formats scanhost tests; do mkdir "$room"; done

failures=0
refused() {  # file, line in it
  write "$1" "$2"
  if output=$("$check" . 2>&1); then
    echo "not found: $1: $2"
    failures=$((failures + 1))
  elif ! grep -qF "$1:2:" <<<"$output"; then
    echo "found, but not as $1:2: $output"
    failures=$((failures + 1))
  fi
  rm "$1"
}
allowed() {
  write "$1" "$2"
  "$check" . >/dev/null 2>&1 || { echo "refused: $1: $2"; failures=$((failures + 1)); }
  rm "$1"
}

refused vardex/pointset/core/A.cpp '#include "mobile/core/PointTime.h"'
refused vardex/pointset/core/A.cpp '#include "pointset/CorvinPointSet.h"'
refused vardex/stance/core/A.h '#include "pointset/core/PointRecord.h"'
refused vardex/mobile/core/A.h '#include "trajectory/core/PoseMath.h"'
refused vardex/trajectory/core/A.h '#  include "pointset/core/PointRecord.h"'
refused vardex/pointset/A.cpp '#include "dataobj/VardexDataObj.h"'
refused vardex/stance/A.cpp '#include "mobile/CorvinMobilePointSet.h"'
refused vardex/mobile/A.cpp '#include "stance/core/PolarMath.h"'
refused vardex/dataobj/A.cpp '#include "pointset/core/PointRecord.h"'
refused vardex/module/frame/A.h '#include "pointset/CorvinPointSet.h"'
refused vardex/pointset/A.cpp '#include "module/Registration.h"'
refused vardex/module/frame/A.cpp '#include "module/Registration.h"'
refused scanhost/A.cpp '#include "trajectory/core/PoseMath.h"'
refused scanhost/picture/A.cpp '#include "module/frame/IoResult.h"'
refused scanhost/picture/A.cpp '#include <cairo.h>'
refused vardex/mobile/A.cpp '#include <execution>'
refused vardex/mobile/core/TimeSort.cpp '#include <dlfcn.h>'
refused vardex/mobile/A.cpp '#include <oneapi/tbb/task_arena.h>'
refused vardex/pointset/core/A.cpp '#if defined(_WIN32)'

allowed vardex/mobile/core/TimeSort.cpp '#include <execution>'
allowed vardex/mobile/core/ResidentScheduler.cpp '#include <oneapi/tbb/task_arena.h>'
allowed vardex/mobile/core/A.h '#include "pointset/core/PointRecord.h"'
allowed vardex/mobile/A.cpp '#include "trajectory/core/PoseMath.h"'
allowed vardex/trajectory/A.cpp '#include "mobile/CorvinMobilePointSet.h"'
allowed vardex/stance/A.cpp '#include "module/frame/ModuleRecord.h"'
allowed vardex/module/Registration.cpp '#include "module/ModuleLifecycle.h"'
allowed vardex/module/Registration.cpp '#include "stance/CorvinStancePointSet.h"'
allowed scanhost/A.cpp '#include "trajectory/TrajectoryNode.h"'
allowed tests/core/A.cpp '#include "stance/core/PolarMath.h"'
allowed vardex/module/LibraryEntry.cpp '#if defined(_WIN32)'

[ "$failures" -eq 0 ] && echo 'every planted offence was found'
