#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Format, static analysis of the library, and generated tables and pages that match what they are made from.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build

find VAPRIX arrays bench charts cli cpp examples faces tests tools -name '*.[ch]' -o -name '*.cpp' -o -name '*.hpp' |
    grep -v '^VAPRIX/[a-z]*/tables/' | xargs clang-format --dry-run --Werror
python3 VAPRIX/exports/generate.py pages build/pages
diff -r build/pages/reference docs/reference
for page in build/pages/*.md; do diff "$page" "docs/${page##*/}"; done
cmake --preset release >/dev/null
cmake --build build/release --target tools/all >/dev/null
python3 tools/check.py build/release/tools
# without the tests each file is compiled once, so that it is analysed once
cmake --preset release-clang -B build/lint -DVAPRIX_BUILD_TESTS=OFF -DVAPRIX_BUILD_ARRAYS=ON -DVAPRIX_BUILD_CPP=ON >/dev/null
cmake --build build/lint --target vaprix_faces vaprix_arrays_faces >/dev/null
# packs.cpp is the equations once more, for each instruction set: minutes of analysis that finds nothing new
find VAPRIX arrays/*.cpp charts/*.cpp cpp/*.cpp -name '*.cpp' ! -name packs.cpp | xargs -P "$(nproc)" -n 2 clang-tidy --quiet -p build/lint
