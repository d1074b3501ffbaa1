#!/bin/sh
# Builds everything with warnings as errors and runs every test, then the core tests again
# under AddressSanitizer and UndefinedBehaviorSanitizer, then the benchmarks in quick mode.
set -eu
cd "$(dirname "$0")/.."
./scripts/setup.sh
JOBS=$(nproc)

cmake -S . -B build-ci -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARENA_WERROR=ON >/dev/null
cmake --build build-ci -j "$JOBS"
ctest --test-dir build-ci --output-on-failure -j "$JOBS"

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVARENA_WERROR=ON -DVARENA_SANITIZE=ON \
  -DVARENA_SOLO_NUCLEO=ON >/dev/null
cmake --build build-asan -j "$JOBS" --target varena_test
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ./build-asan/tests/varena_test --gtest_brief=1

./scripts/bench.sh --rapido
