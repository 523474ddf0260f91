#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, as Debian packages; the one place that names them, a line for each part of the tests
# (scripts/parts), the demo, scripts/test.sh and the benchmarks. Every part needs what the demo needs.
# Usage: scripts/setup.sh [part ...]   (default: all of them)
set -eu

parts="
demo     cmake g++ libcli11-dev ninja-build python3
test     ccache
core     binutils clang clang-format clang-tidy libbenchmark-dev libclang-rt-14-dev libgtest-dev libmpfr-dev musl-tools
fuzz     clang libclang-rt-14-dev
install  pkg-config
cli      libcairo2-dev man-db pkg-config zsh
fortran  gfortran pkg-config
hosts    fp-compiler mono-mcs
spreadsheet libreoffice-calc libreoffice-dev python3-uno
python   python3-dask python3-dev python3-hypothesis python3-matplotlib python3-numpy python3-pandas python3-pint python3-pip python3-pytest python3-setuptools python3-venv python3-wheel python3-xarray
scale    openmpi-bin python3-dask python3-dev python3-distributed python3-mpi4py python3-numpy python3-pytest python3-zarr
aarch64  binutils g++-aarch64-linux-gnu qemu-user
windows  g++-mingw-w64-x86-64-posix gfortran-mingw-w64-x86-64-posix lld llvm-14 wine64
emscripten emscripten nodejs
browser  chromium emscripten fonts-liberation nodejs npm
debian   abigail-tools build-essential debhelper dh-fortran-mod dh-python gfortran libpython3-dev lintian pkg-config python3-numpy python3-setuptools
handbook furo man-db python3-myst-parser python3-sphinx
bench    libbenchmark-dev libgtest-dev python3-matplotlib
"
# packages PART: its line of the table
packages() {
    echo "$parts" | sed -n "s/^$1  *//p" | grep . || {
        echo "setup.sh: no part $1" >&2
        exit 2
    }
}

[ $# -gt 0 ] || set -- $(echo "$parts" | cut -d' ' -f1)
wanted="" missing=""
for part in demo "$@"; do
    listed=$(packages "$part")
    wanted="$wanted $listed"
done
# what another package provides is there too: a Node.js from elsewhere brings its npm and conflicts with Debian's
present=$(dpkg-query -W -f '${db:Status-Status} ${Package}, ${Provides}\n' | sed -n 's/^installed //p' | tr -s ', ' '\n')
for package in $(printf '%s\n' $wanted | sort -u); do
    echo "$present" | grep -qxF "$package" || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "installing:$missing" >&2
$as_root env DEBIAN_FRONTEND=noninteractive sh -c "apt-get update -qq && apt-get install -y -qq --no-install-recommends $missing" >&2
