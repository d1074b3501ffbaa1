#!/bin/sh
# Builds the program and shows the bundled example job.
set -eu
cd "$(dirname "$0")/.."
./scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
./build/cli/varena-cli info examples/RILIEVO.CFG "$@"
