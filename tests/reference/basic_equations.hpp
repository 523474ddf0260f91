// SPDX-License-Identifier: MIT
// States of the basic equations in quadruple precision, how exactly doubles can reproduce them, and
// the densities of region 3.
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

// Densities of region 3 by Newton's method, to a relative step of 1e-25: the root found from a density
// that is nearly right, 0 when the isotherm does not rise on the way.
inline Quad polished_density3(Quad p, Quad t, Quad d) {
    for (int step = 0; step < 200; ++step) {
        const State x = region3(d, t);
        if (!(x.p_d() > 0)) return 0;
        const Quad change = (x.p() - p) / x.p_d();
        d -= change;
        if (magnitude(change) < 1e-25 * d) return d;
    }
    return 0;
}

// The two densities of equal pressure and equal Gibbs energy at t, started at the given pair.
struct Coexistence {
    Quad vapour, liquid;
};
inline Coexistence coexistence3(Quad t, Quad vapour, Quad liquid) {
    for (int step = 0; step < 200; ++step) {
        const State gas = region3(vapour, t), drop = region3(liquid, t);
        // dg = 1000 v dp along the isotherm, so both conditions are linear in the two dp.
        const Quad p_gap = drop.p() - gas.p(), g_gap = (drop.g() - gas.g()) / 1000;
        const Quad dp_gas = (g_gap - drop.v() * p_gap) / (gas.v() - drop.v());
        const Quad vapour_step = dp_gas / gas.p_d(), liquid_step = (dp_gas - p_gap) / drop.p_d();
        vapour += vapour_step;
        liquid += liquid_step;
        if (magnitude(vapour_step) + magnitude(liquid_step) < 1e-25 * vapour) break;
    }
    return {vapour, liquid};
}

}  // namespace reference
