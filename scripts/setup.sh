#!/bin/sh
# Installs every Debian package the project needs; packages already present are skipped,
# and the package lists are refreshed only when something is missing.
set -eu

PACCHETTI="build-essential cmake ninja-build pkg-config googletest libgtest-dev libgmock-dev \
libbenchmark-dev libzip-dev zlib1g-dev qt6-base-dev qt6-svg-dev qt6-translations-l10n fonts-liberation xvfb xauth poppler-utils \
clang libclang-rt-14-dev llvm libcgal-dev \
python3-ezdxf gdal-bin librecad python3-matplotlib qt6-serialport-dev socat"

mancanti=""
for p in $PACCHETTI; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    mancanti="$mancanti $p"
  fi
done

if [ -n "$mancanti" ]; then
  echo "Installo:$mancanti"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends $mancanti
fi
