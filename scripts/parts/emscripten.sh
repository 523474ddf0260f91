#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The library for WebAssembly and its hosts, run in Node.js: the same digits as on x86-64.
set -eu
cd "$(dirname "$0")/../.."

export NODE_PATH=/usr/share/nodejs  # where Debian has what Emscripten needs, also for another Node.js
cmake --preset emscripten
cmake --build build/emscripten
ctest --test-dir build/emscripten --output-on-failure
