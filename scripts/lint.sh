#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Format, static analysis, and generated tables that match their data.
set -eu
cd "$(dirname "$0")/.."

git ls-files '*.cpp' '*.hpp' '*.c' '*.h' ':!VAPRIX/regions/tables/*' | xargs clang-format --dry-run --Werror
python3 tools/tables/generate_tables.py --check
cmake --preset release-clang -B build/lint -DVAPRIX_BUILD_TESTS=OFF >/dev/null
cmake --build build/lint --target vaprix_faces >/dev/null
git ls-files 'VAPRIX/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint
