#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The library for aarch64 and its hosts, run in qemu-user: the same digits as on x86-64.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset aarch64
cmake --build build/aarch64
ctest --test-dir build/aarch64 --output-on-failure --parallel "$(nproc)"
