#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds the library and lets a host program answer a plant's measured states.
# Usage: scripts/demo.sh [stations.csv]
set -eu
stations=$(realpath "${1:-$(dirname "$0")/../examples/plant/stations.csv}")
cd "$(dirname "$0")/.."

sh scripts/setup.sh demo
mkdir -p build
cmake --preset library >build/demo.log 2>&1 &&
    cmake --build build/library --target vaprix plant >>build/demo.log 2>&1 || {
    cat build/demo.log >&2
    exit 1
}
build/library/examples/plant build/library/VAPRIX/libvaprix.so "$stations"
