// SPDX-License-Identifier: MIT
//
// The second variable of an equation from the given pair, for all lanes of a pack: the steps of the
// inverses of one state, each lane stopped where its own state stops.
#pragma once

#include "pack.hpp"

#include "inverse/of_py.hpp"

namespace vaprix::arrays {

// As newton_secant() has it; 0 where a lane does not converge.
template <int lanes, class TangentOf, class ValueOf>
VAPRIX_INLINE Pack<lanes> newton_secant(TangentOf tangent, ValueOf value, Pack<lanes> y,
                                        Pack<lanes> x, double tolerance) noexcept {
    constexpr int rounds = 8;
    Tangent<Pack<lanes>> at = tangent(x);
    Pack<lanes> root = 0;
    auto searching = x == x;
    for (int round = 0; round < rounds; ++round) {
        const Pack<lanes> step = (y - at.y) / at.y_x;
        x += step;
        const auto settled = searching & (machine::fabs(step) < tolerance * x);
        root = machine::select(settled, x, root);
        searching = searching & !settled;
        if (machine::none(searching)) break;
        const Pack<lanes> y_new = value(x);
        at = {y_new, 2 * (y_new - at.y) / step - at.y_x};
    }
    return root;
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> onto_limit(Pack<lanes> t, double low, double high) noexcept {
    const auto below = (t < low) & (t >= low - t_rounding);
    const auto above = (t > high) & (t <= high + t_rounding);
    return machine::select(below, Pack<lanes>(low), machine::select(above, Pack<lanes>(high), t));
}

// As t_backward() has it.
template <class Number>
VAPRIX_INLINE Number onto_cold_limit(Number t) noexcept {
    const auto held = (t >= T_min - inverse::backward_tolerance) & (t < T_min);
    return machine::select(held, Number(T_min), t);
}
template <class Number>
VAPRIX_INLINE Number onto_hot_limit(Number t) noexcept {
    return machine::select((t > T_25) & (t <= inverse::t_25_widened), Number(T_25), t);
}

// As solve_gibbs() has it, in a region of p and T.
template <class Y, class Equation, class Number>
VAPRIX_INLINE Number solve_gibbs(Number p, Number along, Number start, double low, double high,
                                 double step) noexcept {
    const Number t = newton_secant(
        [p](Number at) noexcept { return Y::template tangent<Equation>(p, at); },
        [p](Number at) noexcept { return Y::template value<Equation>(p, at); }, along, start, step);
    return onto_limit(t, low, high);
}

}  // namespace vaprix::arrays
