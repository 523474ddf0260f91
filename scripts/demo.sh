#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds the command vaprix and lets it answer a plant's measured states.
# Usage: scripts/demo.sh [stations.csv]
set -eu
stations=$(realpath "${1:-$(dirname "$0")/../examples/plant/stations.csv}")
cd "$(dirname "$0")/.."

sh scripts/setup.sh demo
mkdir -p build
cmake --preset cli >build/demo.log 2>&1 &&
    cmake --build build/cli --target vaprix_cli >>build/demo.log 2>&1 || {
    cat build/demo.log >&2
    exit 1
}
PATH="$PWD/build/cli/cli:$PATH"
vaprix state p=15MPa T=600C
echo
vaprix map --in "$stations" -d 6 -u C -a 'v = v(p, T)' -a 'h = h(p, T)' -a 's = s(p, T)' -a 'Ts = T(p)'
