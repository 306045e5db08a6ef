#!/usr/bin/env bash
# Runs fuzz targets from their corpora: run-fuzzers.sh SECONDS [TARGET...]; all of the preset fuzz if none is named.
# New inputs stay beside the target; a finding is kept there and ends the run with 1.
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(build/fuzz/fuzz/*Fuzz)
passed=0
failed=0

fuzz() { # TARGET
    local name corpus found
    name=$(basename "$1")
    corpus=fuzz/corpus/${name%Fuzz}
    found=$(dirname "$1")/found/$name
    mkdir -p "$found"
    [ -d "$corpus" ] || { echo "no corpus: $corpus"; return 1; }
    UBSAN_OPTIONS=print_stacktrace=1 "$1" -max_total_time="$seconds" -rss_limit_mb=4096 -timeout=20 \
        -max_len=16384 -artifact_prefix="$found/finding-" "$found" "$corpus" >"$found.log" 2>&1
}

for target in "${targets[@]}"; do
    name=$(basename "$target")
    if fuzz "$target"; then
        passed=$((passed + 1))
        echo "ok      $name  $(grep -oE 'Done [0-9]+ runs' "$(dirname "$target")/found/$name.log" | tail -1)"
    else
        failed=$((failed + 1))
        echo "FAILED  $name"
        tail -30 "$(dirname "$target")/found/$name.log" 2>/dev/null
    fi
done
echo "$passed passed, $failed failed"
[ $failed = 0 ] && [ $passed -gt 0 ]
