#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The page in Chromium: states against the exports, units, failures, charts, links, accessibility, at every width.
set -eu
cd "$(dirname "$0")/../.."

sh faces/browser/build.sh || {
    [ $? -eq 75 ] || exit 1
    echo "browser: NOT TESTED, the registry of npm cannot be reached" >&2
    exit 0
}
node --test faces/browser/tests/page.test.mjs
