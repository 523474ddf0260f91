#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, checks format and tables, and builds and runs all tests: both compilers, release and
# under the sanitizers, warnings as errors.
# Usage: scripts/test.sh [preset ...]   (default: all of them)
set -eu
cd "$(dirname "$0")/.."

sh scripts/setup.sh test
sh scripts/lint.sh
[ $# -gt 0 ] || set -- release release-clang asan asan-clang tsan tsan-clang
for preset in "$@"; do
    echo "== $preset"
    cmake --preset "$preset"
    cmake --build "build/$preset"
    ctest --test-dir "build/$preset" --output-on-failure --parallel "$(nproc)"
done
