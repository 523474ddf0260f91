#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Configures and builds a preset that several parts of the tests share, which may run at once.
# Usage: scripts/build.sh PRESET [TARGET ...]
set -eu
cd "$(dirname "$0")/.."
preset=$1
shift
mkdir -p build
exec 9>"build/$preset.lock"
flock 9
cmake --preset "$preset"
cmake --build "build/$preset" ${1+--target} "$@"
