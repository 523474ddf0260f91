// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

#include "frame/elementary.hpp"
#include "frame/newton.hpp"

namespace vaprix {

// Root of a monotonic y(x) = y between low and high by Newton's method, held in the bracket: a step
// that leaves it goes to the end, and halves the bracket where that end has been seen.
//
// Given:    tangent  y and its slope at x;  low, high  ends of the bracket;  x  start value;
//           tolerance  relative step that ends the iteration: as it converges quadratically, choose
//           the root of what is wanted.
// Returned: the root, converged; an end, converged, where the root lies beyond it; not converged
//           for a NaN, or after 60 rounds.
template <class TangentOf, class Number>
NewtonRoot<Number> bracketed_newton(TangentOf tangent, Number y, Number low, Number high, Number x,
                                    double tolerance) noexcept {
    constexpr int rounds = 60;
    bool seen_low = false;
    bool seen_high = false;
    for (int round = 0; round < rounds; ++round) {
        const Tangent<Number> at = tangent(x);
        const Number step = (y - at.y) / at.y_x;
        if (fabs(step) < tolerance * fabs(x)) {
            return {std::clamp(x + step, low, high), true};
        }
        if (!(fabs(step) >= 0)) return {x, false};
        if (step > 0) {
            if (x >= high) return {high, true};
            low = x;
            seen_low = true;
        } else {
            if (x <= low) return {low, true};
            high = x;
            seen_high = true;
        }
        x += step;
        if (x >= high) x = seen_high ? 0.5 * (low + high) : high;
        if (x <= low) x = seen_low ? 0.5 * (low + high) : low;
    }
    return {x, false};
}

}  // namespace vaprix
