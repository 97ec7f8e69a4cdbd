#!/usr/bin/env bash
# Fails when the scripts of the page have a fault that can be seen without running them: unknown
# names, unused ones, wrong types or counts of arguments. The TypeScript compiler reads them as they
# are: plain JavaScript.
set -euo pipefail
cd "$(dirname "$0")/.."
tsc --project scanhost/view
scripts=(scanhost/view/*.js)
echo "check-page: ${#scripts[@]} scripts are fine"
