#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the program need.
# Idempotent and quiet when everything is already there.
set -euo pipefail

PACKAGES=(
  build-essential cmake pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6printsupport6 libgl-dev
  qt6-charts-dev libqt6opengl6-dev libxkbcommon-dev qt6-translations-l10n
  libsqlite3-dev libsqlitecpp-dev sqlite3
  libcurl4-openssl-dev libgumbo-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-dev
  libcli11-dev nlohmann-json3-dev libzip-dev zlib1g-dev
  fonts-liberation fonts-comic-neue fontconfig
  xvfb xauth poppler-utils
  imagemagick xdotool
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installazione pacchetti mancanti: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
