#!/bin/bash
# SPDX-License-Identifier: MIT
# The example program on its own station list and on files no program likes to read.
#   plant.sh PLANT LIBRARY STATIONS.csv
set -u
plant=$1 library=$2 stations=$3
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
failures=0

fail() {
    echo "FAIL $*" >&2
    failures=$((failures + 1))
}

run() { # arguments of the program; leaves $status, out and err
    "$plant" --library "$library" "$@" >"$scratch/out" 2>"$scratch/err"
    status=$?
}

# value STATION COLUMN: from the comma-separated output in $scratch/out (no commas inside fields)
value() {
    awk -F, -v station="$1" -v column="$2" '
        { gsub(/"/, "") }
        NR == 1 { for (i = 1; i <= NF; ++i) if (index($i, column) == 1) at = i }
        $1 == station && at { print $at }' "$scratch/out"
}

near() { # near STATION COLUMN EXPECTED TOLERANCE: from steam tables, to the digits they print
    local got
    got=$(value "$1" "$2")
    awk -v g="$got" -v e="$3" -v t="$4" \
        'BEGIN { exit !(g ~ /^-?[0-9]/ && g - e <= t && e - g <= t) }' ||
        fail "$1: $2 is '$got', expected $3 within $4"
}

same() { # same STATION QUANTITY: outside region 3 both families agree to rounding
    local b o
    b=$(value "$1" "$2_B") o=$(value "$1" "$2_O")
    awk -v b="$b" -v o="$o" \
        'BEGIN { d = b - o; exit !(b ~ /^[0-9]/ && o ~ /^[0-9]/ && d * d <= 1e-18 * b * b) }' ||
        fail "$1: $2 is '$b' by the B-family and '$o' by the O-family"
}

# The plant of the example.
run --csv "$stations"
[ $status = 0 ] && [ ! -s "$scratch/err" ] || fail "stations: status $status, $(cat "$scratch/err")"
near 'turbine inlet' h_B 3583 1
near 'turbine inlet' s_B 6.68 0.01
near 'turbine inlet' region 2 0
near 'condenser outlet' h_B 159.2 0.1
near 'condenser outlet' v_O 0.0010072 1e-6
near 'condenser outlet' region 1 0
near 'pump outlet' Ts_O 620.51 0.01
near 'turbine exhaust' Ts_B 318.96 0.01
for station in 'turbine inlet' 'boiler outlet' 'condenser outlet'; do
    for quantity in v h s cp w; do same "$station" $quantity; done
done
[ "$(value 'pump outlet' h_B)" = '' ] || fail 'pump outlet: an enthalpy without a temperature'
first=$(cat "$scratch/out")
echo "$first" >"$scratch/again.csv"
run --csv "$scratch/again.csv"
[ "$first" = "$(cat "$scratch/out")" ] || fail 'the --csv output read again gives another output'

run "$stations"
grep -Eq '^turbine inlet +15 +600\.00 +2 +0\.02[0-9]+ +0\.02[0-9]+ +358[0-9.]+ ' "$scratch/out" ||
    fail "table: $(cat "$scratch/out")"
grep -Eq '^turbine exhaust +0\.01( +-){12} +45\.8[01] +45\.8[01]$' "$scratch/out" ||
    fail "table without a temperature: $(cat "$scratch/out")"
grep -q '^ *note: no temperature measured' "$scratch/out" || fail 'no note on a missing temperature'

# expect NAME STATUS MESSAGE CONTENT: MESSAGE follows the file's name on stderr ('' for silence),
# CONTENT is a printf format.
head='station,p,p_unit,T,T_unit\n'
expect() {
    printf "$4" >"$scratch/$1.csv"
    run --csv "$scratch/$1.csv"
    [ $status = "$2" ] || fail "$1: status $status, expected $2"
    if [ -n "$3" ]; then
        grep -Fq "$1.csv:$3" "$scratch/err" || fail "$1: no '$3' in: $(cat "$scratch/err")"
    elif [ -s "$scratch/err" ]; then
        fail "$1: $(cat "$scratch/err")"
    fi
}

# What a log may look like.
expect crlf_bom 0 '' '\xEF\xBB\xBFstation,p,p_unit,T,T_unit\r\na,3,MPa,300,K\r\n'
expect no_final_newline 0 '' "${head}a,3,MPa,300,K"
expect comments 0 '' "# log\n\n   \n${head}\n# h\xFCbsch\n a , 3 , MPa , 300 , K \n"
expect quoted 0 '' "\"T\",T_UNIT,Station,extra,P,\"p_unit\"\n300,K,\"feed, \"\"A\"\"\",x,3,MPa\n"
expect utf8 0 '' "${head}\xC3\x9Cberhitzer,3,MPa,300,K\n"
expect above_critical 0 '' "${head}a,25,MPa,,\n"
expect units 0 '' "${head}a,3,MPa,300,K\nb,30,bar,26.85,C\nc,3000,kPa,80.33,F\nd,3e6,Pa,300,K
e,435.113213,psi,300,K\nf,29.607698,atm,300,K\ng,30.591487,kgf/cm2,300,K\n"
for station in b c d e f g; do near $station h_B "$(value a h_B)" 1e-4; done

# What is wrong with it, and where.
expect empty 1 '1: no header row' ''
expect only_comments 1 '2: no header row' '# a\n# b\n'
expect only_header 1 '1: no station' "$head"
expect missing_column 1 '2: missing column (p_unit)' '#\nstation,p,T,T_unit\n'
expect duplicate_column 1 '1: duplicate column (p)' 'station,p,p_unit,T,T_unit,p\n'
expect few_fields 1 '2: 4 fields where the header row has 5 (a)' "${head}a,3,MPa,300\n"
expect many_fields 1 '3: 6 fields where' "${head}\na,3,MPa,300,K,\n"
expect decimal_comma 1 '2: 6 fields where' "${head}a,3,5,MPa,300,K\n"
expect very_many_fields 1 '2: too many fields' "${head}$(printf ',%.0s' {1..200})\n"
expect not_a_number 1 '2: not a number (three)' "${head}a,three,MPa,300,K\n"
expect nan 1 '2: not a number (nan)' "${head}a,nan,MPa,300,K\n"
expect infinite 1 '2: not a number (-inf)' "${head}a,3,MPa,-inf,K\n"
expect hexadecimal 1 '2: not a number (0x3)' "${head}a,0x3,MPa,300,K\n"
expect trailing 1 '2: trailing characters after a number (3 MPa)' "${head}a,3 MPa,MPa,300,K\n"
expect half_exponent 1 '2: trailing characters after a number (3e)' "${head}a,3e,MPa,300,K\n"
expect overflow 1 '2: number too large or too small (1e999)' "${head}a,1e999,MPa,300,K\n"
expect unit_overflow 1 '2: number too large (1e308)' "${head}a,1e308,atm,300,K\n"
expect unit 1 '2: unknown pressure unit' "${head}a,3,mPa,300,K\n"
expect gauge 1 '2: unknown pressure unit, known are MPa, bar, kPa, Pa, psi, atm, kgf/cm2 (bar(g))' \
    "${head}a,3,bar(g),300,K\n"
expect no_unit 1 '2: unknown temperature unit, known are C, K, F ()' "${head}a,3,MPa,300,\n"
expect blank_but_wrong_unit 1 '2: unknown temperature unit' "${head}a,3,MPa,,R\n"
expect no_pressure 1 '2: a station without a pressure (a)' "${head}a,,MPa,300,K\n"
expect no_name 1 '2: a station without a name (3)' "${head},3,MPa,300,K\n"
expect open_quote 1 '2: a quoted field does not end on its line' "${head}\"a,3,MPa,300,K\n"
expect after_quote 1 '2: text behind a quoted field (b,3,' "${head}\"a\"b,3,MPa,300,K\n"
expect overlong 1 '2: line longer than 1000 bytes (aaa' "${head}$(printf 'a%.0s' {1..1001}),3\n"
expect nul 1 '2: not a line of UTF-8 text (a)' "${head}a\\0b,3,MPa,300,K\n"
expect latin1 1 '2: not a line of UTF-8 text (\xDC' "${head}\xDCberhitzer,3,MPa,300,K\n"
expect utf16 1 '1: not a line of UTF-8 text' '\xFF\xFEs\0t\0'
expect outside 1 '2: outside the range of validity' "${head}a,200,MPa,300,K\n"
grep -q 'error code -10055 (200 MPa, 300 K)' "$scratch/err" || fail 'outside: no error code'
expect outside_by_pressure 1 '2: outside the range of validity' "${head}a,101,MPa,,\n"

# The good stations among bad ones are printed, the bad ones are all named.
expect mixed 1 '5: outside the range' \
    "${head}a,x,MPa,300,K\nb,3,MPa,300,K\nc,3,MPa\nd,3,MPa,1,K\ne,3,MPa,700,K"
[ "$(cut -d, -f1 "$scratch/out" | tr '\n' ' ')" = 'station b e ' ] ||
    fail "mixed: $(cat "$scratch/out")"
[ "$(cut -d: -f2 "$scratch/err" | tr '\n' ' ')" = '2 4 5 ' ] || fail "mixed: $(cat "$scratch/err")"

# On the saturation line p and T leave the state open: nothing is made up.
saturated=$(value b Ts_O)
run --csv - < <(printf "${head}a,3,MPa,%s,K\n" "$saturated")
if [ "$(value a region)" = 4 ]; then
    [ $status = 0 ] && [ "$(value a h_O)$(value a v_B)" = '' ] ||
        fail "saturation line: $(cat "$scratch/out")"
else
    fail "3 MPa, $saturated K is not on the saturation line: $(cat "$scratch/out" "$scratch/err")"
fi

# What is no file, no library, no option.
for arguments in 'no_such_file.csv' '/' '--no-such-option x.csv' '' 'a.csv b.csv'; do
    run $arguments
    [ $status = 2 ] && [ -s "$scratch/err" ] || fail "plant $arguments: status $status"
done
for broken in "$scratch/none.so" "$stations" libm.so.6; do
    "$plant" --library "$broken" "$stations" >"$scratch/out" 2>"$scratch/err"
    status=$?
    [ $status = 2 ] && [ ! -s "$scratch/out" ] || fail "library $broken: status $status"
    grep -Eq 'cannot open the library|has no function HBPT' "$scratch/err" ||
        fail "library $broken: $(cat "$scratch/err")"
done
if [ -w /dev/full ]; then
    "$plant" --library "$library" "$stations" >/dev/full 2>"$scratch/err"
    [ $? = 2 ] || fail 'a full disk goes unnoticed'
fi
run --help
[ $status = 0 ] && grep -q -- --library "$scratch/out" || fail "--help: status $status"

[ $failures = 0 ]
