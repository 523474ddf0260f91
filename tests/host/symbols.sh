#!/bin/bash
# SPDX-License-Identifier: MIT
# The face the library shows the loader.
#   symbols.sh LIBRARY EXPORTS.txt [sanitized]
# A sanitized build has the run-time libraries and start-up code of its instrumentation besides.
set -u
library=$1 exports=$2 sanitized=${3-}
failures=0

fail() {
    echo "FAIL $*" >&2
    failures=$((failures + 1))
}

for tool in nm readelf; do
    command -v $tool >/dev/null || { echo "no $tool" >&2; exit 2; }
done

names() { # the dynamic symbols the library defines, each with its type
    nm -D --defined-only "$library" | awk '{ print $NF, $(NF - 1) }'
}

listed=$(sort "$exports") || exit 2
[ -n "$listed" ] || fail "$exports is empty"
difference=$(diff <(echo "$listed") <(names | cut -d' ' -f1 | sort)) || {
    echo "$difference" >&2
    fail "the library's symbols (>) are not the export list (<). If an export was added or" \
        "renamed on purpose, give it a row in the catalogue, from which $exports is made;" \
        "any other symbol is to be hidden."
}
[ "$(echo "$listed" | uniq -d)" = '' ] || fail "listed twice: $(echo "$listed" | uniq -d)"
odd=$(names | awk '($1 == "CODE") != ($2 ~ /[BD]/) || $2 !~ /[BDT]/')
[ "$odd" = '' ] || fail "CODE alone is data, everything else code: $odd"
code=$(readelf --dyn-syms -W "$library" | awk '$NF == "CODE" { print $3, $4, $5, $6 }')
# a sanitizer may pad it
if grep -qx CODE "$exports" && [ "$code" != '4 OBJECT GLOBAL DEFAULT' ] && [ "$sanitized" != sanitized ]; then
    fail "CODE is '$code'"
fi

dynamic() { # dynamic TAG: the values of a tag of the dynamic section
    readelf -dW "$library" | sed -n "s/.*($1).*\[\(.*\)\]/\1/p"
}

soname=$(dynamic SONAME)
[[ $soname =~ ^libvaprix(_arrays)?\.so\.[0-9]+$ && ${library##*/} == "$soname"* ]] || fail "SONAME is '$soname'"
needed=$(dynamic NEEDED | grep -Ev '^(libc\.so\.6|libm\.so\.6|ld-linux.*)$')
[ -n "$sanitized" ] || [ "$needed" = '' ] || fail "needs more than libc and libm: $needed"
readelf -dW "$library" | grep -E 'RPATH|RUNPATH|TEXTREL' &&
    fail 'a search path or a text relocation in the dynamic section'
readelf -dW "$library" | grep STATIC_TLS && fail 'static thread-local storage, which a late dlopen may refuse'
readelf -lW "$library" | grep -E 'GNU_STACK.*RWE' && fail 'an executable stack'

# One pointer is the compiler's own start-up code; a static initialiser of ours would be a second.
start_up=$(readelf -SW "$library" | sed 's/^ *\[ *[0-9]*\] *//' |
    awk '$1 == ".init_array" { print $5 }')
[ -n "$sanitized" ] || [ $((16#${start_up:-0})) -le 8 ] ||
    fail "code runs when the library is loaded: .init_array has 0x$start_up bytes"

[ $failures = 0 ]
