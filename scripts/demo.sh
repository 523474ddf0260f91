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
cmake --preset release -DVAPRIX_BUILD_TESTS=OFF -DVAPRIX_BUILD_BENCHMARKS=OFF -B build/demo >build/demo.log 2>&1 &&
    cmake --build build/demo --target vaprix plant >>build/demo.log 2>&1 || {
    cat build/demo.log >&2
    exit 1
}
build/demo/examples/plant build/demo/VAPRIX/libvaprix.so "$stations"
