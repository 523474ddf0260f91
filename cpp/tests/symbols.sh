#!/bin/sh
# SPDX-License-Identifier: MIT
# The names that libvaprix_cpp.so and libvaprix_cpp.a define for others are those recorded, and neither needs more than
# the C library.
#   symbols.sh LIBRARY.so LIBRARY.a NAMES.txt
set -eu
shared=$1 static=$2 names=$3
nm -DC --defined-only "$shared" | sed 's/^[0-9a-f]* T //' | LC_ALL=C sort | diff "$names" -
nm -gC --defined-only "$static" | sed -n 's/^[0-9a-f]* [A-Zu] //p' | LC_ALL=C sort | diff "$names" -
readelf -dW "$shared" | grep -E 'RPATH|RUNPATH|TEXTREL|STATIC_TLS' && exit 1
readelf -dW "$shared" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | grep -v '^libc\.so\|^libm\.so\|^ld-linux' && exit 1
readelf -dW "$shared" | grep -q 'SONAME.*\[libvaprix_cpp\.so\.[0-9]*\]'
