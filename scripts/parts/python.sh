#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The Python package in Debian's Python: the wheel as pip makes and installs it, without a network, and every function of
# it against the library of the same build.
set -eu
cd "$(dirname "$0")/../.."

/usr/bin/python3 -m venv --clear --system-site-packages build/wheel-venv
CXXFLAGS=-Werror build/wheel-venv/bin/pip install --quiet --no-index --no-build-isolation ./faces/python
cmake --build build/wheel-cmake --target vaprix
export VAPRIX_LIBRARY="$PWD/build/wheel-cmake/VAPRIX/libvaprix.so" PYTHONDONTWRITEBYTECODE=1
build/wheel-venv/bin/python -m pytest -q -p no:cacheprovider faces/python/tests/*.py
