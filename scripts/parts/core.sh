#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Format, generated files, and all tests of the library: both compilers, and one sanitizer by each, warnings as errors.
# Usage: scripts/parts/core.sh [preset ...]   (default: those four; asan and tsan-clang are the others)
set -eu
cd "$(dirname "$0")/../.."

mkdir -p build
lint=""
[ $# -gt 0 ] || set -- release release-clang asan-clang tsan
for preset in "$@"; do
    echo "== $preset"
    cmake --preset "$preset"
    cmake --build "build/$preset"
    if [ "$preset" = release ]; then # beside what follows, which leaves a processor idle at times
        sh scripts/lint.sh >build/lint.log 2>&1 &
        lint=$!
    fi
    ctest --test-dir "build/$preset" --label-exclude install --output-on-failure --parallel "$(nproc)"
done
if [ -n "$lint" ]; then
    wait "$lint" || { cat build/lint.log >&2 && exit 1; }
else
    sh scripts/lint.sh
fi
