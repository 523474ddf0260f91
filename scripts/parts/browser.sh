#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The page in Chromium: states against the exports, units, failures, charts, links, accessibility, at every width.
set -eu
cd "$(dirname "$0")/../.."

sh faces/browser/build.sh
node --test faces/browser/tests/page.test.mjs
