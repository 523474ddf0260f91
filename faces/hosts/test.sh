#!/bin/sh
# SPDX-License-Identifier: MIT
#
# The commands of README.md, one for each program stage.* and CMakeLists.txt, print stage.txt.
#   test.sh PREFIX    where the library is installed
set -eu
here=$(cd "$(dirname "$0")" && pwd)
prefix=$(cd "$1" && pwd)
export prefix LD_LIBRARY_PATH="$prefix/lib"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

sed -n 's/^| .*(\([A-Za-z]*\.[a-z]*\)) | `\(.*\)` |$/\1 \2/p' "$here/README.md" >"$scratch/commands"
ls "$here" | grep -v 'README.md\|stage.txt\|test.sh' | sort >"$scratch/programs"
cut -d' ' -f1 "$scratch/commands" | sort | diff "$scratch/programs" -
while read -r program command; do
    echo "$command"
    mkdir "$scratch/of_$program"
    cp "$here"/* "$scratch/of_$program"
    (cd "$scratch/of_$program" && sh -ec "$command" </dev/null >out && diff "$here/stage.txt" out)
done <"$scratch/commands"
