#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installed library from programs in several languages.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset library
cmake --build build/library
cmake --install build/library --component Unspecified --prefix build/hosts
sh faces/hosts/test.sh build/hosts
