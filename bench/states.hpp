// SPDX-License-Identifier: MIT
//
// Random states for the benchmarks, in random order so that no branch predictor learns them.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "strata.hpp"

struct State {
    double p, t;        // MPa, K
    double d, v, h, s;  // kg/m3, m3/kg, kJ/kg, kJ/(kg K), by the library
    double x;           // vapour quality of wet steam
};

// A set for each of the benchmarks' `sets`, in their order.
enum class Set { region1, region2, region3, region5, mixed, line, dense, wet };

inline strata::Point single_phase(strata::Random& random, int region, double low, double high) {
    for (;;) {
        const double t = random.uniform(low, high);
        const double p =
            random.uniform(strata::p_low, region == 5 ? strata::p_high_5 : strata::p_high);
        if (bound::call<REGIONPT>(p, t) == region) return {p, t};
    }
}
inline strata::Point saturated(double t, double x) { return {bound::call<PBT>(t), t, x}; }

struct Sampled {
    const char* name;
    strata::Point (*sample)(strata::Random&);
};
inline const std::array<Sampled, 8> sets = {
    // uniform in p and T over the region
    Sampled{"region 1", [](auto& r) { return single_phase(r, 1, strata::T_low, strata::T_13); }},
    {"region 2", [](auto& r) { return single_phase(r, 2, strata::T_low, strata::T_25); }},
    {"region 3", [](auto& r) { return single_phase(r, 3, strata::T_13, strata::T_23); }},
    {"region 5", [](auto& r) { return single_phase(r, 5, strata::T_25, strata::T_high); }},
    // any of the four, state by state
    {"mixed", [](auto& r) { return sets[static_cast<std::size_t>(r.integer(0, 3))].sample(r); }},
    // up to 623.15 K: T uniform, p on its own uniform in pressure
    {"saturation line",
     [](auto& r) {
         const double p = r.uniform(strata::p_low, strata::p_13);
         return strata::Point{p, r.uniform(strata::T_low, strata::T_13)};
     }},
    // saturated liquid
    {"above 623.15 K",
     [](auto& r) { return saturated(r.uniform(strata::T_13, strata::T_crit), 0); }},
    // up to 623.15 K, uniform in T and x
    {"wet steam", [](auto& r) {
         const double x = r.uniform(0, 1);
         return saturated(r.uniform(strata::T_low, strata::T_13), x);
     }}};

// A power of two, so that an index is kept inside by a mask.
inline constexpr std::size_t count = 1 << 16;

// The states of a set, count of them, made when first asked for.
inline const std::vector<State>& states(Set set) {
    using namespace bound;
    static std::array<std::vector<State>, sets.size()> all;
    const auto index = static_cast<std::size_t>(set);
    std::vector<State>& found = all[index];
    strata::Random random(20260000U + index);
    while (found.size() < count) {
        const strata::State at = strata::state(sets[index].sample(random));
        found.push_back({at[p], at[T], at[d], at[v], at[h], at[s], at[x]});
    }
    return found;
}
