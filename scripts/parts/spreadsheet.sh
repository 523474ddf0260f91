#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The faces for spreadsheets, in LibreOffice without a screen: the Calc add-in, and the VBA module for Excel.
set -eu
cd "$(dirname "$0")/../.."

build=build/spreadsheet
cmake --preset spreadsheet
cmake --build "$build" --target vaprix vaprix_oxt vaprix_bas
# the Python that has Debian's python3-uno
/usr/bin/python3 faces/excel/module_test.py "$build/vaprix.bas" "$build/VAPRIX/libvaprix.so"
/usr/bin/python3 faces/calc/addin_test.py "$build/vaprix.oxt" "$build/vaprix-examples.fods" "$build/VAPRIX/libvaprix.so"
