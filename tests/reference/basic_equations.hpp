// SPDX-License-Identifier: MIT
// States of the basic equations in quadruple precision, and how exactly doubles can reproduce them.
#pragma once

#include <algorithm>

#include "published.hpp"

namespace reference {

using published::magnitude;
using published::Quad;

using State = published::State<Quad>;

inline const Quad gas_constant = State::R();
inline const Quad t_crit = published::number<Quad>("647.096");

inline State region3(Quad d, Quad t) { return {3, d, t}; }

// Allowed deviation from the exact property in units of its size, to which R T or R is added for
// energies and entropies, whose zero is arbitrary: 2e-13, or more where the published sums cancel
// (the hot end of region 1 near saturation, where terms 8000 times the sum of a second derivative
// meet; the dense end of region 3; its critical point): 8 roundings of the terms, which no
// evaluation of the printed coefficients in doubles can promise to beat.
inline double rounding_tolerance(bool second, const State& x) {
    constexpr double floor = 2e-13, per_condition = 8 * 0x1p-53;
    const Quad condition = second ? x.second_condition() : x.first_condition();
    return std::max(floor, per_condition * static_cast<double>(condition));
}

}  // namespace reference
