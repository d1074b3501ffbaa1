#!/bin/sh
# Runs the benchmarks. --rapido uses small synthetic jobs (as CI does); without it the jobs
# have the sizes the targets are stated for (10^6 points and 10^6 lines).
# VARENA_BENCH_BUILD names a tree already built with the benchmarks (CI passes its own, so
# that the core is not compiled a third time); without it a Release tree is built here.
set -eu
cd "$(dirname "$0")/.."
ALBERO=${VARENA_BENCH_BUILD:-}
if [ -z "$ALBERO" ]; then
  ALBERO=build-bench
  cmake -S . -B "$ALBERO" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVARENA_TEST=OFF >/dev/null
  cmake --build "$ALBERO"
fi
for b in "$ALBERO"/bench/varena_bench_*; do
  "$b" "$@"
done
