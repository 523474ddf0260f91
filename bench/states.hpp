// SPDX-License-Identifier: MIT
//
// Random states for the benchmarks, in random order so that no branch predictor learns them.
#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <vector>

#include "frame/constants.hpp"
#include "vaprix.h"

struct State {
    double p, t;        // MPa, K
    double d, v, h, s;  // kg/m3, m3/kg, kJ/kg, kJ/(kg K), by the library
    double x;           // vapour quality of wet steam
};

enum class Set {
    region1,  // uniform in p and T over the region
    region2,
    region3,
    region5,
    mixed,  // any of the four regions, state by state
    line,   // saturation line up to 623.15 K: T uniform, p on its own uniform in pressure
    dense,  // saturated liquid above 623.15 K
    wet,    // wet steam up to 623.15 K, uniform in T and x
};
inline constexpr std::array set_names{"region 1", "region 2",        "region 3",       "region 5",
                                      "mixed",    "saturation line", "above 623.15 K", "wet steam"};

// A power of two, so that an index is kept inside by a mask.
inline constexpr std::size_t count = 1 << 16;

using Random = std::mt19937_64;

inline double uniform(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

inline State single_phase(Random& random, int region, double t_low, double t_high) {
    State a{};
    do {
        a.t = uniform(random, t_low, t_high);
        a.p = uniform(random, vaprix::p_min, region == 5 ? vaprix::p_max_5 : vaprix::p_max);
    } while (REGIONPT(&a.p, &a.t) != region);
    a.d = DOPT(&a.p, &a.t);
    a.v = VOPT(&a.p, &a.t);
    a.h = HOPT(&a.p, &a.t);
    a.s = SOPT(&a.p, &a.t);
    return a;
}

// x = 0: the saturated liquid.
inline State saturated(double t, double x) {
    const double d = x == 0 ? DLOT(&t) : DOTX(&t, &x);
    return {PBT(&t), t, d, 1 / d, HOTX(&t, &x), SOTX(&t, &x), x};
}

// The states of a set, count of them, made when first asked for.
inline const std::vector<State>& states(Set set) {
    using vaprix::p_min, vaprix::psat_13, vaprix::T_13, vaprix::T_23_max, vaprix::T_25,
        vaprix::T_crit, vaprix::T_max, vaprix::T_min;
    static std::array<std::vector<State>, set_names.size()> all;
    const auto index = static_cast<std::size_t>(set);
    std::vector<State>& found = all[index];
    Random random(20260000U + index);
    while (found.size() < count) {
        switch (set) {
            case Set::region1: found.push_back(single_phase(random, 1, T_min, T_13)); break;
            case Set::region2: found.push_back(single_phase(random, 2, T_min, T_25)); break;
            case Set::region3: found.push_back(single_phase(random, 3, T_13, T_23_max)); break;
            case Set::region5: found.push_back(single_phase(random, 5, T_25, T_max)); break;
            case Set::mixed: {
                const auto k = static_cast<std::size_t>(random());
                found.push_back(states(static_cast<Set>(k % 4))[k / 4 % count]);
                break;
            }
            case Set::line: {
                const double t = uniform(random, T_min, T_13);
                found.push_back({uniform(random, p_min, psat_13), t, 0, 0, 0, 0, 0});
                break;
            }
            case Set::dense: found.push_back(saturated(uniform(random, T_13, T_crit), 0)); break;
            case Set::wet: {
                const double x = uniform(random, 0, 1);
                found.push_back(saturated(uniform(random, T_min, T_13), x));
                break;
            }
        }
    }
    return found;
}
