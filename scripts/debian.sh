#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Builds the Debian packages from the tree's files into build/debian.
set -eu
cd "$(dirname "$0")/.."

sh scripts/setup.sh debian
out=build/debian
tree=$out/vaprix
rm -rf "$out"
mkdir -p "$tree"
git ls-files -z | xargs -0 cp --parents --target-directory="$tree"
cd "$tree"
dpkg-buildpackage --build=binary --no-sign
