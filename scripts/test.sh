#!/bin/sh
# Builds everything with g++ and warnings as errors and runs every test. Then builds the core
# tests and the fuzz targets of the readers again, in one tree, with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer, optimised as a release is (a constant read before another file
# has set it shows only so, and only under one of the two compilers); runs those tests, replays
# the regression inputs of every fuzz target and fuzzes each for a few seconds. Last the
# benchmarks in quick mode.
set -eu
cd "$(dirname "$0")/.."
./scripts/setup.sh
JOBS=$(nproc)

cmake -S . -B build-ci -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARENA_WERROR=ON >/dev/null
cmake --build build-ci -j "$JOBS"
ctest --test-dir build-ci --output-on-failure -j "$JOBS"

# The same options as scripts/fuzz.sh gives its tree, so that it finds everything built.
CC=clang CXX=clang++ cmake -S . -B build-clang -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARENA_SOLO_NUCLEO=ON \
  -DVARENA_FUZZ=ON -DVARENA_WERROR=ON -DVARENA_BENCH=OFF >/dev/null
cmake --build build-clang -j "$JOBS"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ./build-clang/tests/varena_test --gtest_brief=1
VARENA_FUZZ_BUILD=build-clang VARENA_FUZZ_SEME=1 ./scripts/fuzz.sh 4

VARENA_BENCH_BUILD=build-ci ./scripts/bench.sh --rapido
