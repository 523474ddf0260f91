#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The command-line tool in a shell: published values, units, failures.
set -eu
cd "$(dirname "$0")/../.."

cmake --preset cli
cmake --build build/cli --target vaprix_cli vaprix_cli_pages
python3 cli/test.py build/cli/cli/vaprix
