#!/bin/bash
# SPDX-License-Identifier: MIT
# The saturation table of the example, against the published check values and on bad options.
#   saturation.sh SATURATION LIBRARY CHECK_VALUES.csv
set -u
saturation=$1 library=$2 check_values=$3
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
failures=0

fail() {
    echo "FAIL $*" >&2
    failures=$((failures + 1))
}

run() { # arguments of the program; leaves $status, out and err
    "$saturation" --library "$library" "$@" >"$scratch/out" 2>"$scratch/err"
    status=$?
}

# The check values (Pa, J/kg, kg/m3) are of an older release: they agree to 1e-3, and to 1e-6 of the
# table's units where h' and s' vanish.
compare() { # compare KELVIN WHERE: the table's last line with all values of that temperature
    awk -F, -v kelvin="$1" -v where="$2" '
        NR == FNR { if (FNR == 1) for (i = 1; i <= NF; ++i) { sub(/ .*/, "", $i); column[i] = $i }
                    else for (i = 1; i <= NF; ++i) got[column[i]] = $i
                    next }
        /^#/ || $1 != kelvin { next }
        $2 == "p" { check("p", $3 / 1e5) }
        $2 == "rho_liq" { check("v\047", 1 / $3) }
        $2 == "rho_vap" { check("v\047\047", 1 / $3) }
        $2 ~ /^[hs]_liq$/ { check(substr($2, 1, 1) "\047", $3 / 1e3) }
        $2 ~ /^[hs]_vap$/ { check(substr($2, 1, 1) "\047\047", $3 / 1e3) }
        function check(name, want, d) {
            d = got[name] - want
            if (d < 0) d = -d
            if (!(name in got) || d > 1e-3 * want + 1e-6) {
                printf "%s: %s is %s, expected %s\n", where, name, got[name], want; bad = 1 }
            ++checked
        }
        END { exit bad || checked != 7 }' "$scratch/out" "$check_values" || fail "$2"
}

for family in B O; do
    for kelvin in 273.16 373.1243 647.096; do
        celsius=$(awk -v k=$kelvin 'BEGIN { printf "%.4f", k - 273.15 }')
        run --csv --family $family --from "$celsius" --to "$celsius"
        [ $status = 0 ] && [ "$(wc -l <"$scratch/out")" = 2 ] || fail "$family at $celsius degC"
        compare $kelvin "$family at $celsius degC"
        bar=$(awk -F, 'NR == 2 { print $2 }' "$scratch/out")
        run --csv --family $family --pressure --from "$bar" --to "$bar"
        compare $kelvin "$family at $bar bar"
    done
done

# The lines of the table: steps, the fixed points between them, the series of pressures.
lines() { # lines EXPECTED ARGUMENTS: first figures of all lines
    local expected=$1 got
    shift
    run "$@"
    got=$(awk 'NR > 2 { printf "%s%s", sep, $1 + 0; sep = " " }' "$scratch/out")
    [ $status = 0 ] && [ "$got" = "$expected" ] || fail "$*: status $status, lines $got"
}
lines '0 0.01 100 200 300 373.946' --step 100
lines '99 99.5 100' --from 99 --to 100 --step 0.5
lines '0.01 0.02 0.05 0.1' --pressure --from 0.01 --to 0.1
lines '5 10 15 20 22.064' --pressure --unit MPa --step 5
lines '190 200 220.64' --pressure --from 190
lines '0.000611657 0.001 0.002' --pressure --unit MPa --to 0.003
run
[ $status = 0 ] && [ "$(wc -l <"$scratch/out")" = 79 ] || fail "default table: status $status"
grep -q nan "$scratch/out" && fail 'default table: not a number'

# Lines the library has no answer for are named, the others printed.
run --from 360 --to 380 --step 10
[ $status = 1 ] && grep -q 'outside the saturation line (380 degC)' "$scratch/err" &&
    [ "$(wc -l <"$scratch/out")" = 5 ] || fail "beyond the critical point: status $status"
for arguments in --no-such-option word '--step 0' '--step x' '--step -1' '--from nan' '--from' \
    '--unit PSI' '--family X' '--from 400' '--from 20 --to 10' '--step 1e-6' \
    '--from 1e300 --to 1e300' \
    '--pressure --from 0' '--library /none.so'; do
    run $arguments
    [ $status = 2 ] && [ -s "$scratch/err" ] && [ ! -s "$scratch/out" ] ||
        fail "saturation $arguments: status $status"
done
run --help
[ $status = 0 ] && grep -q -- --library "$scratch/out" || fail "--help: status $status"

[ $failures = 0 ]
