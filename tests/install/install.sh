#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installation as its users find it: moved to another folder, by CMake, by pkg-config, linked statically, and as a
# subproject; and nothing is left after uninstalling.
#   install.sh SOURCE BUILD LIBDIR EXPORTS.txt
. "$1/tests/install/moved.sh"

test -s "$(find moved -name LICENSE)"
test "$(find moved -path '*/reference/*.md' | wc -l)" -gt 15

use() { # use FOLDER LANGUAGE DEFINITION...
    folder=$1 language=$2
    shift 2
    cmake -S "$source/tests/install" -B "$folder" -G Ninja -DLANGUAGE="$language" "$@" >use.log &&
        cmake --build "$folder" >>use.log || { cat use.log && exit 1; }
}
use of_c C -DCMAKE_PREFIX_PATH="$scratch/moved"
use of_cxx CXX -DCMAKE_PREFIX_PATH="$scratch/moved"

for file in use.c use.cpp; do
    cc "$source/tests/install/$file" $(pkg-config --cflags --libs vaprix) -o use
    LD_LIBRARY_PATH="$scratch/moved/$libdir" ./use
done
cc -static "$source/tests/install/use.c" $(pkg-config --static --cflags --libs vaprix) -o use
./use
c++ -std=c++17 "$source/tests/install/use_state.cpp" $(pkg-config --cflags --libs vaprix_cpp vaprix) -o use
LD_LIBRARY_PATH="$scratch/moved/$libdir" ./use

cc "$source/arrays/tests/use.c" $(pkg-config --cflags --libs vaprix_arrays) -o use
LD_LIBRARY_PATH="$scratch/moved/$libdir" ./use
cc -static "$source/arrays/tests/use.c" $(pkg-config --static --cflags --libs vaprix_arrays) -o use
./use

# The static library defines the exported names and no other, and needs the C library alone.
archive=moved/$libdir/libvaprix.a
nm -g --defined-only "$archive" | sed -n 's/.* [A-Zu] //p' | sort | diff "$exports" -
nm -g --undefined-only "$archive" | grep '_Z\|__cxa\|__gxx' && exit 1

use fetched CXX -DSOURCE="$source" -DCMAKE_BUILD_TYPE=Debug
cmake --install fetched --prefix "$scratch/nothing" >installed.log
test ! -e nothing

mv moved first
mv install_manifest_Unspecified.txt install_manifest.txt
cmake -P "$source/cmake/uninstall.cmake"
test -z "$(find first -not -type d)"
