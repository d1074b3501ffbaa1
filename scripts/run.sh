#!/bin/sh
# Builds the program and opens the bundled example job in it. Without a display (a server,
# a container) the window is drawn off screen and its picture saved as varena-esempio.png.
set -eu
cd "$(dirname "$0")/.."
./scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec ./build/app/varena examples/RILIEVO.CFG "$@"
fi
xvfb-run -a -s "-screen 0 1400x900x24" ./build/app/varena examples/RILIEVO.CFG --schermata varena-esempio.png "$@"
echo "Nessun display: finestra salvata in varena-esempio.png"
./build/cli/varena-cli info examples/RILIEVO.CFG
