#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installed library from programs in several languages.
set -eu
cd "$(dirname "$0")/../.."

sh scripts/build.sh library
flock build/library.lock cmake --install build/library --component Unspecified --prefix build/hosts
sh faces/hosts/test.sh build/hosts
