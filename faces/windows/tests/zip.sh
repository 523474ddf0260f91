#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The ZIP, unpacked: programs in C by each import library and statically, and in Fortran through the module.
#   zip.sh SOURCE BUILD EMULATOR...
set -eux
source=$1 build=$2
shift 2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
gcc=x86_64-w64-mingw32-gcc-posix gfortran=x86_64-w64-mingw32-gfortran-posix

cpack --config "$build/CPackConfig.cmake" -B "$scratch" >cpack.log
cmake -E tar xf vaprix-*-win64.zip
mv vaprix-*-win64 unpacked
grep -rIn "$source\|$build" unpacked && exit 1
cp unpacked/bin/vaprix.dll .

$gcc -Iunpacked/include "$source/tests/install/use.c" -Lunpacked/lib -lvaprix -o program.exe
"$@" ./program.exe
$gcc -DVAPRIX_STATIC -Iunpacked/include "$source/tests/install/use.c" unpacked/lib/libvaprix.a -o program.exe
"$@" ./program.exe
# without the C library, whose import libraries of Microsoft's form nobody may pass on
$gcc -c -Dmain=start -Iunpacked/include "$source/tests/install/use.c"
lld-link /entry:start /subsystem:console /out:program.exe use.o unpacked/lib/vaprix.lib
"$@" ./program.exe
$gfortran -static unpacked/include/vaprix.f90 "$source/faces/fortran/examples/feedwater_heater.f90" \
    -Lunpacked/lib -lvaprix -o program.exe
"$@" ./program.exe | tr -d '\r' | diff "$source/faces/fortran/tests/feedwater_heater.txt" -
