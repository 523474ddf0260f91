#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installation as C, C++, CMake and pkg-config users find it.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset library
cmake --build build/library --target vaprix vaprix_static vaprix_arrays vaprix_arrays_static vaprix_cpp vaprix_cpp_static
sh tests/install/install.sh "$PWD" "$PWD/build/library" lib "$PWD/build/library/generated/exports.txt"
