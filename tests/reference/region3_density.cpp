// SPDX-License-Identifier: MIT
#include "region3_density.hpp"

#include "basic_equations.hpp"

namespace reference {

namespace {

constexpr double close_enough = 1e-25;  // relative step after which Newton's method is done
constexpr int most_steps = 200;

}  // namespace

Quad polished_density3(Quad p, Quad t, Quad d) {
    for (int step = 0; step < most_steps; ++step) {
        const State x = region3(d, t);
        if (!(x.p_d() > 0)) return 0;
        const Quad change = (x.p() - p) / x.p_d();
        d -= change;
        if (magnitude(change) < close_enough * d) return d;
    }
    return 0;
}

Coexistence coexistence3(Quad t, Quad vapour, Quad liquid) {
    for (int step = 0; step < most_steps; ++step) {
        const State gas = region3(vapour, t), drop = region3(liquid, t);
        // dg = 1000 v dp along the isotherm, so both conditions are linear in the two dp.
        const Quad p_gap = drop.p() - gas.p(), g_gap = (drop.g() - gas.g()) / 1000;
        const Quad dp_gas = (g_gap - drop.v() * p_gap) / (gas.v() - drop.v());
        const Quad vapour_step = dp_gas / gas.p_d(), liquid_step = (dp_gas - p_gap) / drop.p_d();
        vapour += vapour_step;
        liquid += liquid_step;
        if (magnitude(vapour_step) + magnitude(liquid_step) < close_enough * vapour) break;
    }
    return {vapour, liquid};
}

}  // namespace reference
