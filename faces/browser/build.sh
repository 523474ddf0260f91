#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Builds the page: build/browser, a folder that opens as it is, from a disk or a server.
# Ends with 75 ("try again later") when the registry of npm cannot be reached.
set -eu
cd "$(dirname "$0")/../.."

export NODE_PATH=/usr/share/nodejs  # where Debian has what Emscripten needs, also for another Node.js
cmake --preset page
cmake --build build/page --target vaprix_page vaprix_page_exports
packages=build/page/packages
mkdir -p "$packages"
if ! cmp -s faces/browser/package-lock.json "$packages/node_modules/made-of.json"; then
    cp faces/browser/package.json faces/browser/package-lock.json "$packages"
    npm ci --prefix "$packages" --no-audit --no-fund || {
        npm ping --fetch-retries=0 >/dev/null 2>&1 || exit 75
        exit 1
    }
    cp faces/browser/package-lock.json "$packages/node_modules/made-of.json"
fi
node faces/browser/build.mjs build/page/faces/browser "$packages" build/browser
