#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The Fortran face: every export from programs of gfortran, the installation, the examples.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset fortran
cmake --build build/fortran --target faces/fortran/all
ctest --test-dir build/fortran/faces/fortran --output-on-failure
