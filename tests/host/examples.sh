#!/bin/bash
# SPDX-License-Identifier: MIT
# The example programs: whole lines against published values, bad rows, a missing library.
#   examples.sh PLANT SATURATION LIBRARY STATIONS.csv
set -u
plant=$1 saturation=$2 library=$3 stations=$4
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

# The stations by steam tables, wet steam by the lever rule at 45.81 C (h 191.81 + 2392.07 x, s 0.6492 + 7.4996 x),
# the pump by v dp.
expect 0 "$plant" "$library" "$stations" <<'END'
station p T x v h s cp w Ts
MPa degC kg/kg m3/kg kJ/kg kJ/(kg K) kJ/(kg K) m/s degC
condenser outlet 0.0090 38.00 - 0.00100712 159.18 0.54565 4.17887 1527.62 43.76
pump outlet 16.0000 - - - - - - - 347.36
turbine inlet 15.0000 600.00 - 0.0249207 3583.31 6.67973 2.61201 690.93 342.16
turbine exhaust 0.0100 - 0.880 12.9102 2296.84 7.24893 - - 45.81
pump work, efficiency 0.85 18.88 kJ/kg
heat added 3468.54 kJ/kg
turbine work 1286.47 kJ/kg
heat rejected 2137.65 kJ/kg
turbine efficiency 87.63 %
thermal efficiency 36.55 %
END

# Check values of IAPWS R7-97(2012), Tables 5, 15 and 42, in several units, among rows that make no sense.
printf '%s\r\n' '# a log' 'station,p,p_unit,T,T_unit,x' 'a,30,bar,26.85,C,' 'b,30000,kPa,800.33,F,' \
    'c,30,MPa,2000,K,' 'd,25,MPa,,,' 'e,three,MPa,300,K,' 'f,3,mPa,300,K,' 'g,3,MPa,300,R,' 'h,,MPa,300,K,' \
    'i,3,MPa,300 K,K,' 'j,3,MPa,nan,K,' 'k,3,MPa,,,88' 'l,3,MPa,300,K,0.5' 'm,3,MPa,300,K' 'n,3,MPa,300,K,,' \
    'o,200,MPa,300,K,' 'p,30,MPa,,,0.5' >"$scratch/log.csv"
expect 1 "$plant" "$library" "$scratch/log.csv" <<'END'
a 3.0000 26.85 - 0.00100215 115.33 0.39229 4.17301 1507.74 233.86
b 30.0000 426.85 - 0.00542947 2631.49 5.17540 10.35051 480.39 -
c 30.0000 1726.85 - 0.0311385 6571.23 8.53641 2.88570 1067.37 -
d 25.0000 - - - - - - - -
heat added - kJ/kg
!log.csv:7: not a pressure in MPa, bar, kPa or psi
!log.csv:8: not a pressure in MPa, bar, kPa or psi
!log.csv:9: not a temperature in K, C or F
!log.csv:10: not a pressure in MPa, bar, kPa or psi
!log.csv:11: not a temperature in K, C or F
!log.csv:12: not a temperature in K, C or F
!log.csv:13: not a quality from 0 to 1
!log.csv:14: p, T and x: the state is overdetermined
!log.csv:15: too few cells
!log.csv:16: too many cells
!log.csv:17: outside the range, error code -10055
!log.csv:18: outside the range, error code -10020
END
expect 2 "$plant" "$library" /dev/null <<<'!plant: /dev/null: cannot be read'
expect 2 "$plant" "$library" "$scratch/none.csv" <<<'!plant: none.csv: No such file or directory'
expect 2 "$plant" libm.so.6 "$stations" <<<'!plant: the library has no function HOPS'
expect 2 "$plant" /none.so "$stations" </dev/null

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
