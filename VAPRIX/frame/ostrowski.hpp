// SPDX-License-Identifier: MIT
#pragma once

#include "frame/elementary.hpp"
#include "frame/newton.hpp"

namespace vaprix {

// Root of y(x) = y by Ostrowski's method, of fourth order: in each round Newton's step and, by one
// more value, a second one.
//
// Given:    tangent  y and its slope at x;  value  y alone;  x  start value in the root's
//           neighbourhood;  tolerance  of y, of what Newton's step may leave in the last round.
// Returned: the root, converged; not converged after 4 rounds, where Newton's step leaves more than
//           a tenth, or for a NaN.
template <class TangentOf, class ValueOf, class Number>
NewtonRoot<Number> ostrowski(TangentOf tangent, ValueOf value, Number y, Number x,
                             Number tolerance) noexcept {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        const Tangent<Number> at = tangent(x);
        const Number left = y - at.y;
        const Number step = left / at.y_x;
        const Number left_then = y - value(x + step);
        // a remainder that is no smaller is one of rounding
        const bool bends = fabs(left_then) < 0.1 * fabs(left);
        const Number slope = bends ? at.y_x * (1 - 2 * (left_then / left)) : at.y_x;
        x = x + step + left_then / slope;
        if (fabs(left_then) < tolerance) return {x, true};
        if (!bends) break;
    }
    return {x, false};
}

}  // namespace vaprix
