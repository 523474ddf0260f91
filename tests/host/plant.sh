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
near 'turbine exhaust' region 4 0
near 'turbine exhaust' h_B 2296.9 0.1 # 191.81 + 0.88 2392.1
near 'turbine exhaust' s_O 7.2489 0.0002
near 'turbine exhaust' v_O 12.910 0.002
for station in 'turbine inlet' 'boiler outlet' 'condenser outlet'; do
    for quantity in v h s cp w; do same "$station" $quantity; done
done
[ "$(value 'pump outlet' h_B)" = '' ] || fail 'pump outlet: an enthalpy without a temperature'
[ "$(value 'turbine exhaust' cp_B)" = '' ] || fail 'turbine exhaust: a heat capacity of wet steam'
first=$(cat "$scratch/out")
echo "$first" >"$scratch/again.csv"
run --csv "$scratch/again.csv"
[ "$first" = "$(cat "$scratch/out")" ] || fail 'the --csv output read again gives another output'

run "$stations"
grep -Eq '^turbine inlet +15 +600\.00 +2 +0\.02[0-9]+ +0\.02[0-9]+ +358[0-9.]+ ' "$scratch/out" ||
    fail "table: $(cat "$scratch/out")"
grep -Eq '^pump outlet +16( +-){12} +347\.36 +347\.36$' "$scratch/out" ||
    fail "table without a temperature: $(cat "$scratch/out")"
grep -Eq '^turbine exhaust +0\.01 +- +4 .*( +-){4} +45\.81 +45\.81 ' "$scratch/out" ||
    fail "table of wet steam: $(cat "$scratch/out")"
grep -q '^ *note: no temperature measured' "$scratch/out" || fail 'no note on a missing temperature'

# expect NAME STATUS MESSAGE CONTENT: MESSAGE follows the file's name on stderr ('' for silence),
# CONTENT is a printf format.
head='station,p,p_unit,T,T_unit\n' options=
expect() {
    printf "$4" >"$scratch/$1.csv"
    run --csv $options "$scratch/$1.csv"
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

# The balance of the example. The bands come from steam tables and from the textbook: pump work
# v dp with the liquid 0.35 % denser half way, exhaust by the lever rule at 45.81 C (h 191.81 +
# 2392.1 x, s 0.6492 + 7.4996 x), feed water heated by compression (0.43 K) and by the pump's loss
# (0.68 K).

# item QUANTITY COLUMN: from the comma-separated balance in $scratch/out
item() {
    awk -F, -v quantity="$1" -v column="$2" '
        { gsub(/"/, "") }
        NR == 1 { for (i = 1; i <= NF; ++i) if ($i == column) at = i }
        $1 == quantity && at { print $at }' "$scratch/out"
}

about() { # about QUANTITY EXPECTED TOLERANCE: by both families, which agree to 0.1
    awk -v b="$(item "$1" B)" -v o="$(item "$1" O)" -v d="$(item "$1" B-O)" -v e="$2" -v t="$3" '
        function far(x, y, t) { return x !~ /^-?[0-9]/ || x - y > t || y - x > t }
        BEGIN { exit far(b, e, t) || far(o, e, t) || far(d, b - o, 1e-9) || far(d, 0, 0.1) }' ||
        fail "balance: $1 is '$(item "$1" B)' and '$(item "$1" O)', expected $2 within $3"
}

open() { # open QUANTITY REMARK: it has no value, and the remark says why
    [ -z "$(item "$1" B)$(item "$1" O)$(item "$1" B-O)" ] || fail "balance: $1 has a value"
    [ "$(item "$1" remark)" = "$2" ] || fail "balance: $1 remarks '$(item "$1" remark)', not '$2'"
}

run --csv --balance "$stations"
[ $status = 0 ] && [ ! -s "$scratch/err" ] || fail "balance: status $status, $(cat "$scratch/err")"
about 'isentropic pump work' 16.05 0.1
about 'pump work' 18.88 0.12
about 'pump outlet temperature' 312.26 0.06
about 'heat added' 3468.5 2
about 'pipe loss' 63.3 1.5
about 'isentropic exhaust temperature' 318.96 0.01
about 'isentropic exhaust quality' 0.8041 0.0002
about 'isentropic exhaust enthalpy' 2115.3 0.5
about 'isentropic turbine work' 1468.0 0.7
about 'turbine work' 1286.4 0.5
about 'isentropic efficiency' 87.63 0.07
about 'net work' 1267.5 0.6
about 'heat rejected' 2137.7 0.5
about 'thermal efficiency' 36.54 0.06
about 'ideal thermal efficiency' 41.83 0.025
about 'balance left over' 0 0.1
awk -v o="$(item 'balance left over' O)" 'BEGIN { exit !(o * o < 1e-14) }' ||
    fail "the O-family leaves $(item 'balance left over' O) kJ/kg of the balance"
open 'part of the economiser' 'needs the temperature of the economiser_outlet'
[ "$(item 'pump work' remark)" = 'pump efficiency 85 % assumed' ] || fail 'a pump efficiency silent'
first=$(cat "$scratch/out")
run --csv --balance "$scratch/again.csv"
[ "$first" = "$(cat "$scratch/out")" ] || fail 'the --csv output read again has another balance'
run --csv --balance --pump-efficiency 1 "$stations"
about 'pump work' 16.05 0.1
[ "$(item 'pump work' remark)" = 'pump efficiency 100 % given' ] || fail 'a pump efficiency silent'

# Isentropic work is the integral of v dp: by the trapezoidal rule to 0.0005 kJ/kg over the pump.
work=$(item 'pump work' O) feed=$(item 'pump outlet temperature' O)
run --csv - < <(printf "station,p,p_unit,T,T_unit\na,0.009,MPa,38,C\nb,16,MPa,%s,K\n" "$feed")
awk -v w="$work" -v a="$(value a v_O)" -v b="$(value b v_O)" \
    'BEGIN { d = w - (a + b) / 2 * 15.991e3; exit !(w > 0 && d < 1e-3 && d > -1e-3) }' ||
    fail "the O-family's pump work $work is not the integral of v dp"
run "$stations"
grep -Eq '^isentropic efficiency +% +87\.6[0-9]+ +87\.6[0-9]+ +-?0\.0[0-9]+$' "$scratch/out" ||
    fail "balance: $(cat "$scratch/out")"

# A turbine into superheated steam, alone: 3 MPa, 400 C (h 3231.7, s 6.9235) to 0.5 MPa, 200 C
# (h 2855.9); isentropic 2748.1 + 0.1028 444 at the middle temperature of 444 K.
roles='station,p,p_unit,T,T_unit,x,role\n' options=--balance
back_pressure="${roles}in,3,MPa,400,C,,turbine_inlet\n"
expect back_pressure 0 '' "${back_pressure}out,0.5,MPa,200,C,,turbine_exhaust\n"
open 'isentropic exhaust quality' 'dry steam'
about 'isentropic exhaust enthalpy' 2793.1 1.5
about 'turbine work' 375.8 0.2
about 'isentropic efficiency' 85.7 0.4
open 'pump work' 'no station is the condenser_outlet'
open 'pipe loss' 'no station is the boiler_outlet'
for quantity in 'net work' 'thermal efficiency' 'ideal thermal efficiency' 'balance left over'; do
    open "$quantity" 'no station is the condenser_outlet'
done

# The exhaust of the example as one may find it measured.
exhaust() { # exhaust NAME STATUS MESSAGE T,UNIT,x
    expect "exhaust_$1" "$2" "$3" \
        "${roles}in,15,MPa,600,C,,turbine_inlet\nout,0.01,MPa,$4,turbine_exhaust\n"
}
for t in '' 45.8 45.9 47; do # next to saturation a thermometer cannot tell steam from water
    exhaust wet 0 '' "$t,C,"
    about 'isentropic turbine work' 1468 0.7
    open 'turbine work' 'needs the quality of the turbine_exhaust'
    open 'isentropic efficiency' 'needs the quality of the turbine_exhaust'
done
exhaust both 0 '' '45.3,C,0.88'
about 'turbine work' 1286.4 0.5
exhaust contradiction 1 '3: temperature and quality contradict each other (333.15 K' '60,C,0.88'
exhaust percent 1 '3: a quality is a fraction from 0 to 1 (88)' ',,88'
exhaust words 1 '3: not a number (dry)' ',,dry'
exhaust too_good 1 '3: the turbine does more than its isentropic work (turbine_exhaust)' ',,0.8'

# Roles and measurements that make no sense; what does is still printed.
condenser='a,0.009,MPa,38,C,,condenser_outlet\n' pump='b,16,MPa,,,,pump_outlet\n'
expect unknown_role 1 '2: unknown role, known are condenser_outlet pump_outlet economiser_outlet' \
    "${roles}a,3,MPa,300,K,,boiler\n${pump}"
grep -Fq '(boiler)' "$scratch/err" || fail "unknown_role: $(cat "$scratch/err")"
expect role_case 1 '2: unknown role' "${roles}a,3,MPa,300,K,,Pump_Outlet\n"
expect role_twice 1 '4: the role is taken already by line 3 (pump_outlet)' \
    "${roles}${condenser}${pump}c,17,MPa,,,,pump_outlet\n"
about 'isentropic pump work' 16.05 0.1
expect no_temperature 1 '2: the balance needs the temperature of this station (boiler_outlet)' \
    "${roles}a,15.2,MPa,,,,boiler_outlet\n${condenser}${pump}"
open 'heat added' 'needs the temperature of the boiler_outlet'
about 'pump work' 18.88 0.12
expect bubble_point 0 '' "${roles}a,0.009,MPa,,,0,condenser_outlet\n${pump}"
about 'isentropic pump work' 16.09 0.1
expect steam_to_pump 1 '2: the pump would draw steam (condenser_outlet)' \
    "${roles}a,0.009,MPa,60,C,,condenser_outlet\n${pump}"
open 'pump work' 'the condenser_outlet makes no sense'
expect pump_backwards 1 '3: the pressure does not rise in the pump (pump_outlet)' \
    "${roles}${condenser}b,0.009,MPa,,,,pump_outlet\n"
expect turbine_backwards 1 '3: the pressure does not fall in the turbine (turbine_exhaust)' \
    "${back_pressure}out,3.1,MPa,,,0.9,turbine_exhaust\n"
open 'turbine work' 'the turbine_exhaust makes no sense'
expect quality_in_region_3 1 '2: a quality is understood where saturation is at 273.15 to 623.15' \
    "${roles}a,17,MPa,,,0.5,turbine_exhaust\n"
expect role_outside 1 '3: outside the range' \
    "${roles}b,15.2,MPa,625,C,,boiler_outlet\na,15,MPa,2500,K,,turbine_inlet\n"
open 'pipe loss' 'the turbine_inlet makes no sense'
expect nobody 1 ' no station has a role in the cycle' "${roles}a,3,MPa,300,K,,\n"
run "$scratch/nobody.csv"
grep -q balance "$scratch/out" && fail 'a balance without roles'
[ $status = 0 ] || fail "stations without roles: status $status"

# What is no file, no library, no option.
for arguments in 'no_such_file.csv' '/' '--no-such-option x.csv' '' 'a.csv b.csv' \
    "--pump-efficiency 85 $stations" "--pump-efficiency 0 $stations" \
    "--pump-efficiency 0.9x $stations" '--pump-efficiency'; do
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
