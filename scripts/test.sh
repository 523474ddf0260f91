#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, checks format and tables, and builds and runs all tests: both compilers, release and
# under the sanitizers, warnings as errors.
# Usage: scripts/test.sh [preset ...]   (default: all of them)
set -eu
cd "$(dirname "$0")/.."

sh scripts/setup.sh test
mkdir -p build
lint=""
[ $# -gt 0 ] || set -- release release-clang asan asan-clang tsan tsan-clang
for preset in "$@"; do
    echo "== $preset"
    cmake --preset "$preset"
    cmake --build "build/$preset"
    if [ "$preset" = release ]; then # beside what follows, which leaves a processor idle at times
        sh scripts/lint.sh >build/lint.log 2>&1 &
        lint=$!
    fi
    ctest --test-dir "build/$preset" --output-on-failure --parallel "$(nproc)"
done
if [ -n "$lint" ]; then
    wait "$lint" || { cat build/lint.log >&2 && exit 1; }
else
    sh scripts/lint.sh
fi
