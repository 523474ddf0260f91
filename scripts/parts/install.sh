#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installation as C, C++, CMake and pkg-config users find it.
set -eu
cd "$(dirname "$0")/../.."

sh scripts/build.sh library
flock build/library.lock sh tests/install/install.sh "$PWD" "$PWD/build/library" lib "$PWD/build/library/generated/exports.txt"
