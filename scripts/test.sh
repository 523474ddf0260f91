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
[ $# -gt 0 ] || set -- core $(basename -s .sh scripts/parts/*.sh | grep -vx core) # the longest first
for word in "$@"; do
    if [ -f "scripts/parts/$word.sh" ]; then parts="$parts $word"; else presets="$presets $word"; fi
done
if [ -n "$presets" ]; then
    sh scripts/setup.sh core
    sh scripts/parts/core.sh $presets
fi
[ -n "$parts" ] || exit 0
sh scripts/setup.sh $parts
set -- $parts
[ $# -gt 1 ] || exec sh "scripts/parts/$1.sh"

# two at a time: a part leaves a processor idle at times
mkdir -p build/log
printf '%s\n' "$@" | xargs -P 2 -I PART sh -c '
    start=$(date +%s)
    sh scripts/parts/PART.sh >build/log/PART.log 2>&1 </dev/null && result=passed || result=failed
    echo "== PART"
    cat build/log/PART.log
    echo "== PART $result after $(($(date +%s) - start)) s"
    [ $result = passed ]'
