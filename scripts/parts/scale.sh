#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The programs that fill data sets by the Python package, with a few million rows: Dask on two worker processes, MPI.
set -eu
cd "$(dirname "$0")/../.."

build=build/python
sh scripts/build.sh python vaprix_python
PYTHONDONTWRITEBYTECODE=1 PYTHONPATH="$PWD/$build/site" /usr/bin/python3 -m pytest -q -p no:cacheprovider faces/python/tests/scale
