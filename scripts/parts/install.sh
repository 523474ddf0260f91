#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installation as C, C++, CMake and pkg-config users find it.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset release
cmake --build build/release --target vaprix vaprix_static
ctest --test-dir build/release --label-regex install --output-on-failure
