// SPDX-License-Identifier: MIT
#include "states.hpp"

#include <array>
#include <random>

#include "frame/constants.hpp"
#include "vaprix.h"

namespace {

using namespace vaprix;

using Random = std::mt19937_64;
double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

State single_phase(Random& random, int region, double t_low, double t_high) {
    for (;;) {
        State a{};
        a.t = uniform(random, t_low, t_high);
        a.p = uniform(random, p_min, region == 5 ? p_max_5 : p_max);
        if (REGIONPT(&a.p, &a.t) != region) continue;
        a.d = DOPT(&a.p, &a.t);
        a.v = VOPT(&a.p, &a.t);
        a.h = HOPT(&a.p, &a.t);
        a.s = SOPT(&a.p, &a.t);
        return a;
    }
}

// x = 0: the saturated liquid.
State saturated(double t, double x) {
    State a{};
    a.t = t;
    a.x = x;
    a.p = PBT(&t);
    a.d = x == 0 ? DLOT(&t) : DOTX(&t, &x);
    a.v = 1 / a.d;
    a.h = HOTX(&t, &x);
    a.s = SOTX(&t, &x);
    return a;
}

State make(Set set, Random& random) {
    switch (set) {
        case Set::region1: return single_phase(random, 1, T_min, T_13);
        case Set::region2: return single_phase(random, 2, T_min, T_25);
        case Set::region3: return single_phase(random, 3, T_13, T_23_max);
        case Set::region5: return single_phase(random, 5, T_25, T_max);
        case Set::mixed: {
            constexpr std::array<Set, 4> sets{Set::region1, Set::region2, Set::region3,
                                              Set::region5};
            const auto k = static_cast<std::size_t>(random());
            return states(sets[k % sets.size()])[k / sets.size() % count];
        }
        case Set::line: {
            State a{};
            a.t = uniform(random, T_min, T_13);
            a.p = uniform(random, p_min, psat_13);
            return a;
        }
        case Set::dense: return saturated(uniform(random, T_13, T_crit), 0);
        default: return saturated(uniform(random, T_min, T_13), uniform(random, 0, 1));
    }
}

}  // namespace

const char* name_of(Set set) {
    constexpr std::array names{"region 1", "region 2",        "region 3",       "region 5",
                               "mixed",    "saturation line", "above 623.15 K", "wet steam"};
    return names[static_cast<std::size_t>(set)];
}

const std::vector<State>& states(Set set) {
    static std::array<std::vector<State>, 8> all;
    const auto k = static_cast<std::size_t>(set);
    if (all[k].empty()) {
        Random random(20260000U + k);
        for (std::size_t n = 0; n < count; ++n) all[k].push_back(make(set, random));
    }
    return all[k];
}
