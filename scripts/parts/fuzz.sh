#!/bin/sh
# SPDX-License-Identifier: MIT
#
# Any bits as the arguments of any export, by libFuzzer with the address and undefined sanitizers: a target an arity.
# What fails is left in build/fuzz/found, to be given to its target again.
# Usage: scripts/parts/fuzz.sh [seconds [seed]]   (default: 60 1; an hour of new ones: 3600 0)
set -eu
cd "$(dirname "$0")/../.."

seconds="${1:-60}" seed="${2:-1}"
cmake --preset fuzz
cmake --build build/fuzz
cd build/fuzz
rm -rf seeds found && mkdir found
tests/fuzz/fuzz_seeds seeds

# target ARITY PERCENT: of the time; a call may wait for a busy processor, but not for ever
target() {
    tests/fuzz/fuzz_"$1" -max_total_time=$((seconds * $2 / 100)) -timeout=60 -seed="$seed" \
        -print_final_stats=1 -artifact_prefix=found/"$1"- seeds/"$1" >fuzz_"$1".log 2>&1 || {
        tail -n 60 fuzz_"$1".log >&2
        return 1
    }
    echo "arity $1: $(sed -n 's/.*executed_units: *//p' fuzz_"$1".log) calls"
}
target 2 60 &
status=0
target 1 20 || status=1
target 3 10 || status=1
target 4 10 || status=1
wait $! || status=1
exit $status
