// SPDX-License-Identifier: MIT
//
// Random states for the benchmarks, in random order so that no branch predictor learns them.
#pragma once

#include <cstddef>
#include <vector>

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

// A power of two, so that an index is kept inside by a mask.
inline constexpr std::size_t count = 1 << 16;

[[nodiscard]] const char* name_of(Set set);

// The states of a set, count of them, made when first asked for.
[[nodiscard]] const std::vector<State>& states(Set set);
