#!/bin/sh
# Builds the fuzz targets of the readers with clang (libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each of them: first over its regression inputs, then
# fuzzing for SECONDS from its seeds and from what earlier runs kept. Each finding is saved
# under BUILD/fuzz/trovati/TARGET/ with the report of its replay, and the script then ends
# with status 1.
#
#   scripts/fuzz.sh [SECONDS] [TARGET ...]   SECONDS 60 by default; 0 only replays the inputs
#
# BUILD is build-fuzz, or $VARENA_FUZZ_BUILD (the tests share their clang tree so). The inputs
# that make a target grow its coverage are kept in BUILD/fuzz/corpus/TARGET, so that a long
# campaign can be run in pieces. $VARENA_FUZZ_SEME fixes the random seed and starts from the
# seeds alone, so that a run is repeated as it was (but for the speed of the machine).
set -eu
cd "$(dirname "$0")/.."
RADICE=$(pwd)
SECONDI=${1:-60}
[ $# -gt 0 ] && shift
BUILD=${VARENA_FUZZ_BUILD:-build-fuzz}
FUZZ=$RADICE/tests/fuzz

if [ $# -gt 0 ]; then
  BERSAGLI="$*"
else
  BERSAGLI=$(ls "$FUZZ/corpus")
fi

CC=clang CXX=clang++ cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARENA_SOLO_NUCLEO=ON \
  -DVARENA_FUZZ=ON -DVARENA_WERROR=ON -DVARENA_BENCH=OFF >/dev/null
cmake --build "$BUILD" -j "$(nproc)" --target $(for b in $BERSAGLI; do printf 'fuzz_%s ' "$b"; done)

# The targets work in folders of their own under $TMPDIR: a file system in memory spares the
# disk thousands of small files a second.
BASE=/tmp
[ -d /dev/shm ] && [ -w /dev/shm ] && BASE=/dev/shm
TMPDIR=$(mktemp -d "$BASE/varena-fuzz.XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT INT TERM
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

TROVATI=$RADICE/$BUILD/fuzz/trovati
mkdir -p "$TROVATI"
SEME=""
[ -n "${VARENA_FUZZ_SEME:-}" ] && SEME="-seed=$VARENA_FUZZ_SEME"
# First word of each line of in-attesa.txt, comments aside.
ATTESA=$(sed 's/#.*//' "$FUZZ/regressioni/in-attesa.txt" 2>/dev/null | awk 'NF { print $1 }')
esito=0
for b in $BERSAGLI; do
  eseguibile=$RADICE/$BUILD/tests/fuzz/fuzz_$b
  # The regression inputs, but those that wait for a fix made elsewhere.
  ingressi=""
  if [ -d "$FUZZ/regressioni/$b" ]; then
    for f in "$FUZZ/regressioni/$b"/*; do
      [ -f "$f" ] || continue
      printf '%s\n' "$ATTESA" | grep -qxF "$b/$(basename "$f")" && continue
      ingressi="$ingressi $f"
    done
  fi
  if [ "$SECONDI" -eq 0 ]; then
    ingressi="$ingressi $(ls -d "$FUZZ/corpus/$b"/*)"
  fi
  if [ -n "$ingressi" ] && ! "$eseguibile" $ingressi >"$TROVATI/$b.log" 2>&1; then
    echo "fuzz $b: un ingresso di regressione fallisce (vedi $TROVATI/$b.log)"
    esito=1
    continue
  fi
  [ "$SECONDI" -eq 0 ] && { echo "fuzz $b: ingressi ripetuti senza guasti"; continue; }
  lavoro=$RADICE/$BUILD/fuzz/corpus/$b
  [ -n "$SEME" ] && lavoro=$TMPDIR/corpus-$b
  trovati=$TROVATI/$b
  mkdir -p "$lavoro" "$trovati"
  inizio=$TMPDIR/inizio-$b
  : >"$inizio"
  # In a process of its own, which takes up again after a finding: a long run collects every
  # fault it meets instead of stopping at the first.
  "$eseguibile" -fork=1 -ignore_crashes=1 -ignore_ooms=1 -ignore_timeouts=1 -max_total_time="$SECONDI" \
    -timeout=30 -rss_limit_mb=2048 $SEME -artifact_prefix="$trovati/" "$lavoro" "$FUZZ/corpus/$b" \
    >"$TROVATI/$b.log" 2>&1 || true
  esecuzioni=$(sed -n 's/^#\([0-9]*\): cov:.*/\1/p' "$TROVATI/$b.log" | tail -n 1)
  nuovi=$(find "$trovati" -type f ! -name '*.log' -newer "$inizio" | sort)
  if [ -z "$nuovi" ]; then
    echo "fuzz $b: ${esecuzioni:-0} esecuzioni in $SECONDI s, nessun guasto"
    continue
  fi
  echo "fuzz $b: ${esecuzioni:-0} esecuzioni in $SECONDI s, GUASTI:"
  for f in $nuovi; do
    "$eseguibile" "$f" >"$f.log" 2>&1 || true
    echo "  $f: $(grep -m1 -E 'runtime error|ERROR:' "$f.log" | sed 's/^==[0-9]*==//')"
  done
  esito=1
done
exit $esito
