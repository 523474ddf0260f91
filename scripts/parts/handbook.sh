#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The handbook, warnings as errors: every Markdown file with its links, every export with an example; then the links of
# the built pages, and the man pages.
set -eu
cd "$(dirname "$0")/../.."

build=build/handbook/docs/handbook
cmake --preset handbook
cmake --build build/handbook --target vaprix_handbook
python3 docs/handbook/links.py "$build/html"
MANWIDTH=100 man -M "$build/man" HBPT | grep -q 115.331273
