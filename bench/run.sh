#!/bin/bash
# Runs every benchmark of the build and prints the ratios. Ends with 1 if one is above its limit.
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0
for program in build/bin/*_bench; do
    echo "== $(basename "$program")"
    "$program" || failed=1
done
for script in bench/*.py; do
    [ -e "$script" ] || continue
    echo "== $(basename "$script")"
    PYTHONPATH=bindings/python python3 "$script" || failed=1
done
exit $failed
