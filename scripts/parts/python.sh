#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The Python package: every function in Debian's Python, and the wheel as pip makes and installs it, without a network.
set -eu
cd "$(dirname "$0")/../.."

build=build/python
sh scripts/build.sh python vaprix vaprix_python
export VAPRIX_LIBRARY="$PWD/$build/VAPRIX/libvaprix.so" PYTHONDONTWRITEBYTECODE=1
PYTHONPATH="$build/site" /usr/bin/python3 -m pytest -q -p no:cacheprovider faces/python/tests/*.py

/usr/bin/python3 -m venv --clear --system-site-packages "$build/venv"
"$build/venv/bin/pip" install --quiet --no-index --no-build-isolation ./faces/python
"$build/venv/bin/python" -m pytest -q -p no:cacheprovider faces/python/tests/test_package.py
