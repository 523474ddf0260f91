#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds the command vaprix, lets it answer a plant's measured states, draw them in a chart and
# add columns to a million rows. What it writes is in build/demo.
# Usage: scripts/demo.sh [stations.csv]
set -eu
stations=$(realpath "${1:-$(dirname "$0")/../examples/plant/stations.csv}")
cd "$(dirname "$0")/.."

sh scripts/setup.sh demo
mkdir -p build/demo
cmake --preset cli >build/demo.log 2>&1 &&
    cmake --build build/cli --target vaprix_cli >>build/demo.log 2>&1 || {
    cat build/demo.log >&2
    exit 1
}
PATH="$PWD/build/cli/cli:$PATH"
vaprix state p=15MPa T=600C
echo
vaprix map --in "$stations" -d 6 -u C -a 'v = v(p, T)' -a 'h = h(p, T)' -a 's = s(p, T)' -a 'Ts = T(p)'
echo
vaprix chart ts -o build/demo/plant.svg -p "$stations" -u C,bar
echo "build/demo/plant.svg: the same states in a T,s chart"

rows=1000000
awk -v rows=$rows 'BEGIN {
    print "n,p [bar],T [C]"
    for (n = 1; n <= rows; n++) printf "%d,%.2f,%.1f\n", n, 1 + n * 7919 % 15000 / 100, 20 + n * 104729 % 6000 / 10
}' >build/demo/million.csv
begun=$(date +%s%N)
vaprix map -i build/demo/million.csv -o build/demo/million-states.csv -a 'h = h(p, T)' -a 's = s(p, T)' -d 7
milliseconds=$((($(date +%s%N) - begun) / 1000000))
echo "build/demo/million-states.csv: h and s of $rows rows in $milliseconds ms," \
    "$((rows * 1000 / milliseconds)) rows a second"
