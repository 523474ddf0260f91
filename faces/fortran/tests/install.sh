#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The installation as Fortran programs find it: moved to another folder, the module compiled from its source, the
# examples' results, shared and linked statically.
#   install.sh SOURCE BUILD LIBDIR EXPORTS.txt
. "$1/tests/install/moved.sh"
face=$source/faces/fortran

nm -D --defined-only "moved/$libdir/libvaprix_fortran.so" | sed 's/.* T //' | sort >names
grep -v '^CODE$' "$exports" | tr '[:upper:]' '[:lower:]' | sed 's/$/_/' | sort | diff - names

module=$(pkg-config --variable=module vaprix-fortran)

mkdir of_cmake
cat >of_cmake/CMakeLists.txt <<END
cmake_minimum_required(VERSION 3.25)
project(use LANGUAGES Fortran)
find_package(VAPRIX REQUIRED)
add_executable(heater $face/examples/feedwater_heater.f90)
target_link_libraries(heater PRIVATE VAPRIX::vaprix_fortran)
END
cmake -S of_cmake -B of_cmake -DCMAKE_PREFIX_PATH="$scratch/moved"
cmake --build of_cmake
of_cmake/heater | diff "$face/tests/feedwater_heater.txt" -

for static in "" --static; do
    libraries="-Wl,-rpath,$scratch/moved/$libdir $(pkg-config --libs $static vaprix-fortran)"
    gfortran ${static#-} -ffpe-trap=invalid,zero,overflow "$module" "$face/examples/feedwater_heater.f90" $libraries
    ./a.out | diff "$face/tests/feedwater_heater.txt" -
    gfortran ${static#-} -ffpe-trap=invalid,zero,overflow -std=legacy "$face/examples/throttle.f" $libraries
    ./a.out | diff "$face/tests/throttle.txt" -
done
