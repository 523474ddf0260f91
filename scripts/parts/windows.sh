#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The DLL for 64-bit Windows, its hosts and its ZIP, run in Wine: the same digits as on Linux.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset windows
cmake --build build/windows
ctest --test-dir build/windows --output-on-failure
