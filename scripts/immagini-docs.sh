#!/bin/sh
# Makes every picture of docs/ again, from the example job and the programs as built: the
# desktop window in the middle of a line (docs/finestra.png), the job as varena-cli render
# paints it (docs/esempio.png), and the drawing commands of examples/disegno-comandi.txt
# (docs/disegno-comandi.png). Run it after any change that shows in them; this is the only
# way the pictures are made, so they never lag behind the program.
set -eu
cd "$(dirname "$0")/.."
[ -f build/build.ninja ] || cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target varena varena-cli

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
# The settings and tables of a fresh installation, not the user's own colours and folders.
export VARENA_DOCUMENTI="$tmp/documenti" VARENA_PROGRAMMA="$tmp/programma"
# The programs work on copies: the example job is never touched.
mkdir -p "$tmp/finestra" "$tmp/esempio" "$tmp/disegno"
cp examples/RILIEVO.* "$tmp/finestra/"
cp examples/RILIEVO.* "$tmp/esempio/"
cp examples/RILIEVO.* "$tmp/disegno/"

# The window: a line from station 100 on its way to point 102, with the end snap asked for
# the next click, so that the prompt, the read-outs and a lit snap lamp are all on show.
cat >"$tmp/finestra.txt" <<'FINE'
TAG DISEGNA_LINEA_2_P
KEY P
CLICK left 1725300 5031200
KEY F
MOVE 1725323.9 5031209.3
FINE
xvfb-run -a -s "-screen 0 1400x900x24" ./build/app/varena "$tmp/finestra/RILIEVO.CFG" \
  --script "$tmp/finestra.txt" --schermata docs/finestra.png >/dev/null

./build/cli/varena-cli render "$tmp/esempio/RILIEVO.CFG" docs/esempio.png --size 1600x1000

./build/cli/varena-cli script "$tmp/disegno/RILIEVO" examples/disegno-comandi.txt --rigoroso >/dev/null
./build/cli/varena-cli render "$tmp/disegno/RILIEVO" docs/disegno-comandi.png --size 1200x800 \
  --view 1725317,5031204,62

echo "Immagini rifatte: docs/finestra.png docs/esempio.png docs/disegno-comandi.png"
