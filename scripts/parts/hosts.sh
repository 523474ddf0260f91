#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installed library from programs in several languages.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset release
cmake --build build/release --target vaprix vaprix_static
cmake --install build/release --prefix build/hosts
sh faces/hosts/test.sh build/hosts
