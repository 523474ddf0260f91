#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Installs what is missing, as Debian packages; the one place that names them. The parts build on each other.
# Usage: scripts/setup.sh [demo | test | bench]   (default: all of them)
set -eu

demo="cmake g++ ninja-build python3"
test="binutils clang clang-format clang-tidy libbenchmark-dev libclang-rt-14-dev libgtest-dev"
bench="python3-matplotlib"
case ${1:-bench} in
    demo) packages=$demo ;;
    test) packages="$demo $test" ;;
    bench) packages="$demo $test $bench" ;;
    *) sed -n 's/^# Usage/Usage/p' "$0" >&2 && exit 2 ;;
esac

missing=""
for package in $packages; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "installing:$missing" >&2
$as_root env DEBIAN_FRONTEND=noninteractive sh -c "apt-get update -qq && apt-get install -y -qq --no-install-recommends $missing" >&2
