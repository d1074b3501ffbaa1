#!/bin/sh
# Runs the benchmarks. --rapido uses small synthetic jobs (as CI does); without it the jobs
# have the sizes the targets are stated for (10^6 points and 10^6 lines).
set -eu
cd "$(dirname "$0")/.."
cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DVARENA_TEST=OFF >/dev/null
cmake --build build-bench
for b in build-bench/bench/varena_bench_*; do
  "$b" "$@"
done
