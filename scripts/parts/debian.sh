#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The Debian packages: built, judged by lintian, and unpacked into a folder of their own that a program is linked with.
set -eu
cd "$(dirname "$0")/../.."

DEB_BUILD_OPTIONS=nocheck sh scripts/debian.sh  # the tests are the part core
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs build/debian/*.changes
root=$PWD/build/debian/root
for package in build/debian/libvaprix*.deb; do
    dpkg-deb --extract "$package" "$root"
done

libraries=$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
export PKG_CONFIG_PATH="$libraries/pkgconfig"
cc tests/install/use.c $(pkg-config --cflags --libs vaprix) -o build/debian/use
LD_LIBRARY_PATH=$libraries build/debian/use
