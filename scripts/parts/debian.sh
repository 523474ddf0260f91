#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The Debian packages: built, judged by lintian, unpacked into a folder of their own that programs are linked with, and
# compared with the recorded ABI.
set -eu
cd "$(dirname "$0")/../.."

sh scripts/debian.sh
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs build/debian/*.changes
root=$PWD/build/debian/root
for package in build/debian/*vaprix*_*.deb; do
    dpkg-deb --extract "$package" "$root"
done

libraries=$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
export PKG_CONFIG_PATH="$libraries/pkgconfig"
cc tests/install/use.c $(pkg-config --cflags --libs vaprix) -o build/debian/use
LD_LIBRARY_PATH=$libraries build/debian/use
gfortran faces/fortran/examples/feedwater_heater.f90 $(pkg-config --cflags --libs vaprix-fortran) -o build/debian/heater
LD_LIBRARY_PATH=$libraries build/debian/heater | diff faces/fortran/tests/feedwater_heater.txt -
PYTHONPATH=$root/usr/lib/python3/dist-packages /usr/bin/python3 -c "
import importlib.metadata, vaprix
assert importlib.metadata.version('vaprix') == vaprix.__version__ and vaprix.__file__.startswith('$root')
assert vaprix.water(p=3, T=300).h == vaprix.HOPT(3, 300)"
cmake -S tests/install -B build/debian/found -G Ninja -DLANGUAGE=C -DCMAKE_PREFIX_PATH="$root/usr"
cmake --build build/debian/found

# the record of the number in the SONAME, compiled, against the types that the library's debugging information tells
soname=$(basename "$libraries"/libvaprix.so.?)
sed '/(/s/;$/ { __builtin_trap(); }/' "abi/vaprix-${soname##*.}.txt" |
    cc -x c - -g -shared -fPIC -Wl,-soname,"$soname" -o build/debian/recorded.so
abidiff --debug-info-dir2 "$root/usr/lib/debug" build/debian/recorded.so "$libraries/$soname"
