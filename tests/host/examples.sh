#!/bin/bash
# SPDX-License-Identifier: MIT
# The example program: whole lines against published values, a missing library.
#   examples.sh SATURATION LIBRARY
set -u
saturation=$1 library=$2
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
failures=0

# expect STATUS COMMAND...: its status, then on stdin the lines that out (or err, behind a !) must have,
# blanks squeezed
expect() {
    local status=$1 line file
    shift
    "$@" >"$scratch/out.raw" 2>"$scratch/err.raw"
    [ $? = "$status" ] || { echo "FAIL $*: status is not $status" >&2; failures=$((failures + 1)); }
    for file in out err; do sed "s/  */ /g; s/^ //; s|$scratch/||" "$scratch/$file.raw" >"$scratch/$file"; done
    while IFS= read -r line; do
        case $line in '!'*) file=err line=${line#!} ;; *) file=out ;; esac
        grep -Fxq -- "$line" "$scratch/$file" ||
            { echo "FAIL $*: no line '$line' in $file:" >&2; cat "$scratch/$file" >&2; failures=$((failures + 1)); }
    done
}

# Saturation temperatures of IAPWS R7-97(2012), Table 36, pressures of Table 35; the rest by steam tables.
expect 0 "$saturation" "$library" p <<'END'
0.010 0.000611657 0.00100021 205.997 0.00 2500.91 2500.91 0.0000 9.1555
99.606 0.100000 0.00104315 1.69402 417.44 2257.51 2674.95 1.3026 7.3588
310.999 10.0000 0.00145262 0.0180336 1407.87 1317.61 2725.47 3.3603 5.6159
373.946 22.0640 0.00310559 0.00310559 2087.55 0.00 2087.55 4.4120 4.4120
END
expect 1 "$saturation" "$library" t 26.85 426.85 100 <<'END'
!saturation: outside the saturation line (700 K)
END
expect 2 "$saturation" "$library" t 0 1 0 </dev/null
expect 2 "$saturation" libm.so.6 t <<<'!saturation: the library has no function POT'
[ $failures = 0 ]
