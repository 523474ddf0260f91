#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The time of a call of vaprix.dll in Wine beside that of libvaprix.so: the least of several runs in turn, and the
# ratio.
#   call_time.sh BUILD WINDOWS_BUILD [RUNS]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd) windows=$(cd "$2" && pwd) runs=${3-5}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

gcc -O2 "$here/call_time.c" -I"$build/generated" -L"$build/VAPRIX" -Wl,-rpath,"$build/VAPRIX" -lvaprix -o linux
x86_64-w64-mingw32-gcc-posix -O2 -static "$here/call_time.c" -I"$windows/generated" "$windows/VAPRIX/libvaprix.dll.a" \
    -o windows.exe
cp "$windows/VAPRIX/vaprix.dll" .
wine=$(PATH=$PATH:/usr/lib/wine command -v wine64 || command -v wine)
export WINEPREFIX="$windows/wine" WINEDEBUG=-all

for run in $(seq "$runs"); do
    ./linux | sed 's/^/linux /'
    "$wine" windows.exe | tr -d '\r' | sed 's/^/windows /'
done | awk '
    !(($1, $2) in least) || $3 < least[$1, $2] { least[$1, $2] = $3 }
    !met[$2]++ { names[++n] = $2 }
    END {
        printf "%-14s %8s %8s %8s\n", "ns a call", "Linux", "Wine", "ratio"
        for (k = 1; k <= n; ++k) {
            linux = least["linux", names[k]]; windows = least["windows", names[k]]
            printf "%-14s %8.2f %8.2f %8.2f\n", names[k], linux, windows, windows / linux
        }
    }'
