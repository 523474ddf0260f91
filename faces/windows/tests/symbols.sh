#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The DLL exports the names of the catalogue, undecorated, and no other; it imports DLLs of Windows alone.
#   symbols.sh OBJDUMP DLL EXPORTS.txt
set -eu
headers=$("$1" -p "$2")

echo "$headers" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^.*[0-9]\] //p' | LC_ALL=C sort | diff "$3" -
echo "$headers" | grep -q '^Name[[:blank:]].* vaprix.dll$'
imported=$(echo "$headers" | sed -n 's/.*DLL Name: //p')
[ -n "$imported" ]
echo "$imported" | grep -v -x -e KERNEL32.dll -e msvcrt.dll && exit 1
exit 0
