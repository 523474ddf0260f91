#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what the build and the tests need, as Debian packages; the one place that names them.
set -eu

packages="
  binutils
  clang
  clang-format
  clang-tidy
  cmake
  g++
  libbenchmark-dev
  libclang-rt-14-dev
  libgtest-dev
  ninja-build
  python3
"

missing=""
for package in $packages; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "installing:$missing" >&2
$as_root env DEBIAN_FRONTEND=noninteractive sh -c "apt-get update -qq && apt-get install -y -qq --no-install-recommends $missing" >&2
