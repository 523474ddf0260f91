#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The faces for spreadsheets, in LibreOffice without a screen: the Calc add-in.
set -eu
cd "$(dirname "$0")/../.."

build=build/spreadsheet
cmake --preset spreadsheet
cmake --build "$build" --target vaprix vaprix_oxt
# the Python that has Debian's python3-uno
/usr/bin/python3 faces/calc/addin_test.py "$build/vaprix.oxt" "$build/vaprix-examples.fods" "$build/VAPRIX/libvaprix.so"
