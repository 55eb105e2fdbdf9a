#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian packages Paginox needs to build, test and run. Does nothing when all are
# present; uses sudo only when not root. "install-deps.sh fuzz" installs what the fuzz targets
# need instead (clang and its libFuzzer runtime, and Qt for the drawing target).
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libgl1-mesa-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth
  desktop-file-utils appstream poppler-utils lintian
  wine wine64
)
if [ "${1:-}" = fuzz ]; then
  packages=(cmake ninja-build clang libclang-rt-14-dev qt6-base-dev)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
