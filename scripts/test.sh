#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, builds and runs all tests: the parts in scripts/parts, a file each, whose packages
# scripts/setup.sh lists. Presets choose builds of the part core.
# Usage: scripts/test.sh [part | preset ...]   (default: every part)
set -eu
cd "$(dirname "$0")/.."

sh scripts/setup.sh test
export CCACHE_DIR="$PWD/build/ccache" CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1 CCACHE_IGNOREOPTIONS=-Werror # the parts build much alike
export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache

parts="" presets=""
[ $# -gt 0 ] || set -- $(basename -s .sh scripts/parts/*.sh)
for word in "$@"; do
    if [ -f "scripts/parts/$word.sh" ]; then parts="$parts $word"; else presets="$presets $word"; fi
done
if [ -n "$presets" ]; then
    sh scripts/setup.sh core
    sh scripts/parts/core.sh $presets
fi
for part in $parts; do
    echo "== $part"
    sh scripts/setup.sh "$part"
    sh "scripts/parts/$part.sh"
done
