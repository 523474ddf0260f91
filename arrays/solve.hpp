// SPDX-License-Identifier: MIT
//
// The second variable of an equation from the given pair, for all lanes of a pack: the steps of the
// inverses of one state, each lane stopped where its own state stops.
#pragma once

#include "pack.hpp"

#include "inverse/of_py.hpp"

namespace vaprix {

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

// As newton() has it in two variables; x and y 0 where a lane does not settle.
template <int lanes, class TangentsOf>
VAPRIX_INLINE Point<Pack<lanes>> newton(TangentsOf tangents, Pack<lanes> a, Pack<lanes> b,
                                        Point<Pack<lanes>> at, double tolerance) noexcept {
    constexpr int rounds = 8;
    Point<Pack<lanes>> root{0, 0};
    auto searching = at.x == at.x;
    for (int round = 0; round < rounds; ++round) {
        const TangentPair<Pack<lanes>> f = tangents(at.x, at.y);
        const Point<Pack<lanes>> step = newton_step(f, a - f.a, b - f.b);
        at = {at.x + step.x, at.y + step.y};
        const auto settled = searching & (machine::fabs(step.x) < tolerance * at.x) &
                             (machine::fabs(step.y) < tolerance * at.y);
        root = {machine::select(settled, at.x, root.x), machine::select(settled, at.y, root.y)};
        searching = searching & !settled;
        if (machine::none(searching)) break;
    }
    return root;
}

// As steered_search() has it; 0 where a lane meets equal residuals or does not settle.
template <int lanes, class Function>
VAPRIX_INLINE Pack<lanes> steered_search(Function f, Pack<lanes> a, Pack<lanes> b,
                                         double tolerance) noexcept {
    constexpr int rounds = 12;
    constexpr double tiny = 1e-8;
    using machine::select;
    Pack<lanes> fa = f(a), fb = f(b), root = 0;
    auto searching = fa != fb;
    for (int round = 0; round < rounds; ++round) {
        const Pack<lanes> c = a + fa * (b - a) / (fa - fb);
        searching = searching & (c > tiny);
        const auto settled = searching & (machine::fabs((c - a) / c) < tolerance);
        root = select(settled, c, root);
        searching = searching & !settled;
        if (machine::none(searching)) break;

        const Pack<lanes> fc = f(c), with_a = fa * fc, with_b = fb * fc;
        const auto both_change = (with_a < 0) & (with_b < 0);
        const auto from_a =
            select(both_change, -with_a, with_a) <= select(both_change, -with_b, with_b);
        const Pack<lanes> middle = (a + b) / 2;
        b = select(from_a, a, b);
        fb = select(from_a, fa, fb);
        a = c;
        fa = fc;

        const auto not_halved = searching & ((middle - a) * (middle - b) < 0);
        if (!machine::none(not_halved)) {
            const Pack<lanes> ratio = machine::fabs(fa / fb), half = (a + b) / 2;
            const auto small = ratio <= 0.3, large = !(ratio < 3);
            Pack<lanes> e = select(small, a + 1.5 * ratio * (b - a), select(large, a, half));
            Pack<lanes> fe = f(e);
            const auto missed = (small & (fa * fe >= 0)) | (large & (fb * fe >= 0));
            if (!machine::none(not_halved & missed)) {
                e = select(missed, half, e);
                fe = f(e);
            }
            const auto from_e = not_halved & (fb * fe >= fa * fe);
            b = select(from_e, a, b);
            fb = select(from_e, fa, fb);
            a = select(not_halved, e, a);
            fa = select(not_halved, fe, fa);
        }
        searching = searching & (fa != fb);
    }
    return root;
}

namespace arrays {

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
VAPRIX_INLINE Number search_gibbs(Number p, Number along, Number start, double step) noexcept {
    return newton_secant([p](Number at) noexcept { return Y::template tangent<Equation>(p, at); },
                         [p](Number at) noexcept { return Y::template value<Equation>(p, at); },
                         along, start, step);
}
template <class Y, class Equation, auto start, class Number>
VAPRIX_INLINE Number solve_gibbs(Number p, Number y, double low, double high) noexcept {
    const Number along = inverse::along_isobar<Y, Equation>(p, y);
    auto [t, settled] = inverse::correct_patch<Y, Equation>(p, along);
    if (!machine::none(!settled)) {
        const Number searched =
            search_gibbs<Y, Equation>(p, along, start(p, y), inverse::gibbs_step);
        t = machine::select(settled, t, searched);
    }
    return onto_limit(t, low, high);
}

}  // namespace arrays
}  // namespace vaprix
