#!/bin/sh
# Makes every picture of docs/ again, from the example job and the programs as built: the
# desktop window at 1280x800 and at 1920x1080, in the light and in the dark theme
# (docs/finestra*.png), the job as varena-cli render paints it (docs/esempio.png), the
# drawing commands of examples/disegno-comandi.txt (docs/disegno-comandi.png) and the
# sections of examples/sezioni.txt (docs/sezioni.png) with the dialog of their layout
# (docs/sezioni-configura.png) and laid out on pages (docs/sezioni-impagina.png). Run it after
# any change that shows in them; this is the only way the pictures are made, so they never
# lag behind the program.
set -eu
cd "$(dirname "$0")/.."
[ -f build/build.ninja ] || cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target varena varena-cli

tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# The line from station 100 on its way to point 102, with the end snap asked for the next
# click, so that the prompt, the read-outs and a lit snap lamp are all on show.
cat >"$tmp/linea.txt" <<'FINE'
TAG DISEGNA_LINEA_2_P
KEY P
CLICK left 1725300 5031200
KEY F
MOVE 1725323.9 5031209.3
FINE
# A side of the house picked to be moved: the selection's dialog stands beside the drawing,
# clear of what was picked.
cat >"$tmp/selezione.txt" <<'FINE'
TAG CAMBIA_SPOSTA
PRESS Selezentita.Singola
CLICK left 1725318.263 5031209.0425
KEY ESC
FINE

# finestra NAME WIDTH HEIGHT THEME SCRIPT: the window filling a screen of that size. Each
# picture has the settings and tables of a fresh installation of its own (not the user's
# colours, folders and window layout) and works on a copy of the example job.
finestra() {
  dir="$tmp/$1"
  mkdir -p "$dir/lavoro"
  cp examples/RILIEVO.* "$dir/lavoro/"
  VARENA_DOCUMENTI="$dir/documenti" VARENA_PROGRAMMA="$dir/programma" \
    xvfb-run -a -s "-screen 0 ${2}x${3}x24" ./build/app/varena "$dir/lavoro/RILIEVO.CFG" \
    --dimensioni "${2}x${3}" --tema "$4" --script "$5" --schermata "docs/$1.png" >/dev/null
}
finestra finestra 1280 800 chiaro "$tmp/linea.txt"
finestra finestra-scura 1280 800 scuro "$tmp/linea.txt"
finestra finestra-1920 1920 1080 chiaro "$tmp/selezione.txt"
finestra finestra-1920-scura 1920 1080 scuro "$tmp/selezione.txt"

export VARENA_DOCUMENTI="$tmp/documenti" VARENA_PROGRAMMA="$tmp/programma"
mkdir -p "$tmp/esempio" "$tmp/disegno" "$tmp/sezioni"
cp examples/RILIEVO.* "$tmp/esempio/"
cp examples/RILIEVO.* "$tmp/disegno/"
cp examples/RILIEVO.* "$tmp/sezioni/"
./build/cli/varena-cli render "$tmp/esempio/RILIEVO.CFG" docs/esempio.png --size 1600x1000

./build/cli/varena-cli script "$tmp/disegno/RILIEVO" examples/disegno-comandi.txt --rigoroso >/dev/null
./build/cli/varena-cli render "$tmp/disegno/RILIEVO" docs/disegno-comandi.png --size 1200x800 \
  --view 1725317,5031204,62

./build/cli/varena-cli script "$tmp/sezioni/RILIEVO" examples/sezioni.txt --rigoroso >/dev/null
./build/cli/varena-cli render "$tmp/sezioni/RILIEVO" docs/sezioni.png --size 1200x800 --view 1725357,5031114,60
printf 'VIEW 1725357 5031114 60\nTAG SEZIONI_CONFIGURA\nCLICK left 1725342 5031121.5\n' >"$tmp/configura.txt"
xvfb-run -a -s "-screen 0 1280x800x24" ./build/app/varena "$tmp/sezioni/RILIEVO.CFG" --dimensioni 1280x800 \
  --tema chiaro --script "$tmp/configura.txt" --schermata docs/sezioni-configura.png >/dev/null
# The same two sections laid out on A3 pages from a corner north-east of the job.
printf 'TAG SEZIONI_IMPAGINA\nCLICK left 1725400 5031300\nSAVE\n' >"$tmp/impagina.txt"
./build/cli/varena-cli script "$tmp/sezioni/RILIEVO" "$tmp/impagina.txt" --rigoroso >/dev/null
./build/cli/varena-cli render "$tmp/sezioni/RILIEVO" docs/sezioni-impagina.png --size 1200x600 \
  --view 1725486,5031270,92

echo "Immagini rifatte: docs/finestra.png docs/finestra-scura.png docs/finestra-1920.png" \
  "docs/finestra-1920-scura.png docs/esempio.png docs/disegno-comandi.png docs/sezioni.png" \
  "docs/sezioni-configura.png docs/sezioni-impagina.png"
