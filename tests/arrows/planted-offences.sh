#!/usr/bin/env bash
# Plants one offence at a time in a small tree and sees whether check-arrows names its line; then
# plants includes that are allowed, which it must leave alone.
set -euo pipefail
check=$(readlink -f "$1")
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cd "$tree"

write() { mkdir -p "$(dirname "$1")"; printf '#pragma once\n%s\n' "${2:-}" >"$1"; }
for header in host/values/Tq/Vec3d.h host/service/Ovr/Errors.h host/framework/Hx/PointSet.h \
  module/IoResult.h module/ModuleRecord.h module/Registration.h dataobj/VardexDataObj.h \
  pointset/PointRecord.h pointset/CorvinPointSet.h stance/PolarMath.h \
  stance/CorvinStancePointSet.h mobile/PointTime.h mobile/CorvinMobilePointSet.h \
  trajectory/TrajectoryNode.h trajectory/PoseMath.h scanhost/Report.h tests/support/Borrowed.h; do
  write "$header"
done

failures=0
refused() {  # file, line in it
  write "$1" "$2"
  if output=$("$check" . 2>&1); then
    echo "not found: $1: $2"
    failures=$((failures + 1))
  elif ! grep -qF "$1:2: " <<<"$output"; then
    echo "found, but not as $1:2: $output"
    failures=$((failures + 1))
  fi
  rm "$1"
}
allowed() {
  write "$1" "$2"
  "$check" . >/dev/null || { echo "refused: $1: $2"; failures=$((failures + 1)); }
  rm "$1"
}

refused host/values/Hx/A.h '#include "Ovr/Errors.h"'
refused host/service/Ovr/A.cpp '#include "Hx/PointSet.h"'
refused host/framework/Hx/A.cpp '#include "module/IoResult.h"'
refused pointset/NewMath.cpp '#include "Ovr/Errors.h"'
refused pointset/NewMath.cpp '#include "mobile/PointTime.h"'
refused trajectory/NewMath.h '#include "pointset/PointRecord.h"'
refused stance/CorvinStancePointSetNew.cpp '#include "mobile/CorvinMobilePointSet.h"'
refused mobile/CorvinMobilePointSetNew.cpp '#include "stance/PolarMath.h"'
refused dataobj/VardexDataObjNew.cpp '#include "pointset/PointRecord.h"'
refused pointset/CorvinPointSetNew.cpp '#include "dataobj/VardexDataObj.h"'
refused pointset/CorvinPointSetNew.cpp '#  include "module/Registration.h"'
refused scanhost/A.cpp '#include "trajectory/PoseMath.h"'
refused scanhost/A.cpp '#include "nowhere/Unknown.h"'
refused tests/load/A.cpp '#include "dataobj/VardexDataObj.h"'
refused mobile/CorvinMobilePointSetNew.cpp '#include <execution>'
refused pointset/NewMath.cpp '#if defined(_WIN32)'

write tests/load/A.cpp '#include "tests/support/Borrowed.h"'
refused tests/support/Borrowed.h '#include "module/IoResult.h"'
write tests/support/Borrowed.h
rm tests/load/A.cpp

write pointset/First.h '#include "pointset/Second.h"'
write pointset/Second.h '#include "pointset/First.h"'
"$check" . >/dev/null && { echo 'not found: a circle of headers'; failures=$((failures + 1)); }
rm pointset/First.h pointset/Second.h

allowed mobile/TimeSort.cpp '#include <execution>'
allowed mobile/TimedNew.h '#include "pointset/PointRecord.h"'
allowed mobile/CorvinMobilePointSetNew.cpp '#include "trajectory/PoseMath.h"'
allowed trajectory/CorvinMobileTrajectory.cpp '#include "mobile/CorvinMobilePointSet.h"'
allowed module/Registration.cpp '#include "stance/CorvinStancePointSet.h"'
allowed scanhost/A.cpp '#include "trajectory/TrajectoryNode.h"'
allowed tests/core/A.cpp '#include "stance/PolarMath.h"'
allowed module/LibraryEntry.cpp '#if defined(_WIN32)'

[ "$failures" -eq 0 ] && echo 'every planted offence was found'
