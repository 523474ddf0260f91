#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Builds the Debian packages from the tree's files into build/debian, without the tests, which scripts/test.sh runs.
set -eu
cd "$(dirname "$0")/.."

sh scripts/setup.sh debian
out=build/debian
tree=$out/vaprix
rm -rf "$out"
mkdir -p "$tree"
tar --create --exclude-vcs --exclude=./build . | tar --extract --directory "$tree"
cd "$tree"
DEB_BUILD_PROFILES=nocheck DEB_BUILD_OPTIONS=nocheck dpkg-buildpackage --build=binary --no-sign
