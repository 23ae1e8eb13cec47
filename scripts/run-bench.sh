#!/usr/bin/env bash
# Runs every benchmark program of the build and prints its figures.
set -euo pipefail
build=${1:-build}
shopt -s nullglob
for b in "$build"/bin/bench_*; do
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true
done
