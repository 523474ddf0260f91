// SPDX-License-Identifier: MIT
// Every export as Fortran calls it, through the module and as an EXTERNAL procedure, against the
// same call from C, bit for bit: value, region and code, at all states and at no state, under traps.
#include <fenv.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "bound.hpp"
#include "strata.hpp"

using namespace bound;
using namespace strata;

// Call the export of a number in the catalogue, from 1.
using ByNumber = void(const int* number, const double* given, int* region, double* answer);
extern "C" ByNumber modern, fixed_;

namespace {

Answer ask_by_number(ByNumber* call, int number, const Export& function, const Values& at) {
    double given[4] = {};
    for (std::size_t k = 0; k < function.inputs.size(); ++k) given[k] = at[function.inputs[k]];
    int region = 0;
    double answer = unwritten;
    code() = untouched;
    call(&number, given, &region, &answer);
    return {answer, code(), region};
}

bool same(const Answer& a, const Answer& b) {
    return std::bit_cast<std::uint64_t>(a.value) == std::bit_cast<std::uint64_t>(b.value) &&
           a.code == b.code && a.region == b.region;
}

// Formed without traps, which are for the exports alone.
std::vector<State> all_states() {
    std::vector<State> all;
    sweep(0.001, 600, [&](const Stratum&, const State& at) { all.push_back(at); });
    Random random(601);
    for (int k = strata::states(0.01); k > 0; --k) all.push_back({no_state(random)});
    return all;
}

}  // namespace

int main() {
    const std::vector<State> states = all_states();
    feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
    long calls = 0, differences = 0;
    for (const State& at : states) {
        int number = 0;
        for (const Export& each : exports()) {
            ++number;
            if (!each.is_for(at.region)) continue;
            const Answer from_c = ask(each, at);
            for (ByNumber* by_fortran : {modern, fixed_}) {
                ++calls;
                if (same(ask_by_number(by_fortran, number, each, at), from_c)) continue;
                if (++differences < 20)
                    std::printf("other than from C: %s\n", digits(each, at).c_str());
            }
        }
    }
    std::printf("%ld calls, %ld differences\n", calls, differences);
    return calls > 0 && differences == 0 ? 0 : 1;
}
