// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <type_traits>

#include "frame/elementary.hpp"

namespace vaprix {

// A point and the residual there.
template <class Number>
struct Residual {
    Number x;
    Number f;
};
template <class Number>
Residual(Number, Number) -> Residual<Number>;

template <class Number>
struct BracketedRoot {
    Number x;
    bool converged;
};

// Root of f between a and b, where f changes sign: regula falsi with extra points that pull the far
// end of the bracket in. The iteration for the density of region 3, and for temperatures between its
// saturated densities.
//
// Given:    f  residual;  a, b  ends of the bracket;  tolerance  relative step that ends the
//           iteration (absolute below 1e-8): the step from one round's secant point to the next, so
//           that the two points behind an accepted secant are both as close as that and its own
//           error is of second order in the tolerance.
// Returned: the root, converged; the last point, not converged, after 40 rounds.
template <class Function, class Number>
BracketedRoot<Number> bracketed_secant(Function f, std::type_identity_t<Residual<Number>> a,
                                       std::type_identity_t<Residual<Number>> b,
                                       Number tolerance) noexcept {
    constexpr double tiny = 1e-8;       // |x| below which the step is measured absolutely
    constexpr double last_step = 1e-5;  // absolute step that the last round accepts as well
    constexpr int rounds = 40;

    Number far = a.x;
    Number f_far = a.f;
    Number near = b.x;  // the newest point
    Number f_near = b.f;
    if (f_far == 0) return {far, true};
    if (f_near == 0) return {near, true};

    // makes x the newest point; the point kept with it is the one on the other side of the root
    const auto advance = [&](Number x, Number fx) {
        if ((fx < 0) != (f_near < 0)) {
            far = near;
            f_far = f_near;
        }
        near = x;
        f_near = fx;
    };

    Number previous = std::numeric_limits<double>::infinity();  // secant point of the round before
    for (int round = 1; round <= rounds; ++round) {
        Number x = near - f_near * (far - near) / (f_far - f_near);
        // a secant point at an end of the bracket has converged; one beyond it, or none, is
        // replaced
        if (!((x - near) * (x - far) <= 0)) x = 0.5 * (near + far);

        const Number step = fabs(x - previous);
        previous = x;
        if (fabs(x) < tiny ? step < tolerance : step < tolerance * fabs(x)) return {x, true};
        if (round == rounds && step < last_step) return {x, true};

        const Number fx = f(x);
        if (fx == 0 || fx == f_near) return {x, true};
        const Number ratio = fabs(fx / f_near);
        advance(x, fx);

        if (ratio < 3) {  // aim beyond the root, or halve
            const Number extra =
                ratio <= 0.3 ? near + 1.5 * ratio * (far - near) : 0.5 * (near + far);
            const Number f_extra = f(extra);
            if (f_extra == 0) return {extra, true};
            advance(extra, f_extra);
        }
    }
    return {near, false};
}

}  // namespace vaprix
