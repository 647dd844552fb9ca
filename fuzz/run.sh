#!/bin/bash
# Runs every fuzz target of a build folder for some seconds over its kept corpus: fuzz/run.sh BUILD-FOLDER SECONDS
set -euo pipefail
build=$1
seconds=$2
folder=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export MOX_HOME=$scratch/home
export ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=1
export LSAN_OPTIONS=suppressions=$folder/../cmake/leaks.supp:print_suppressions=0

for target in "$build"/bin/*_fuzz; do
    name=$(basename "$target")
    mkdir -p "$scratch/$name"
    corpus=("$scratch/$name")
    [ -d "$folder/corpus/$name" ] && corpus+=("$folder/corpus/$name")
    echo "== $name"
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -artifact_prefix="$scratch/" -print_final_stats=1 "${corpus[@]}" \
        2>"$scratch/$name.log" || { tail -n 60 "$scratch/$name.log"; exit 1; }
    grep -E 'stat::number_of_executed_units' "$scratch/$name.log"
done
