#!/usr/bin/env bash
# Runs the benchmarks and prints, for each road, its ratio to the peer beside it: run-benchmarks.sh [NAME...]
# Before: dev/packages.sh benchmarks; cmake --preset release; cmake --build --preset release --target benchmarks
# A road "Group/ours" stands beside its peers "Group/peer..." of the same program.
set -euo pipefail
cd "$(dirname "$0")/.."
names=("$@")
[ ${#names[@]} -gt 0 ] || names=(build/release/benchmarks/*Benchmark)
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT

for name in "${names[@]}"; do
    program=$name
    [ -x "$program" ] || program=build/release/benchmarks/$name
    echo "== $(basename "$program")" >&2
    "$program" --benchmark_out="$results/$(basename "$program").json" --benchmark_out_format=json \
        --benchmark_repetitions=3 --benchmark_report_aggregates_only=true >&2
done
dev/benchmark-ratios.py "$results"/*.json
