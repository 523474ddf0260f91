// SPDX-License-Identifier: MIT
#pragma once

#include "frame/elementary.hpp"

namespace vaprix {

// Root of f from a start bracket by secant steps that are steered: after a step that did not halve
// the bracket an extra point is taken, extrapolated beyond the secant point or at the middle. This
// is the search for the temperature of region 5, where no backward equation exists.
//
// Given:    f  residual;  a, b  ends of the start bracket;  tolerance  relative step that ends the
//           search (absolute below 1e-8).
// Returned: the root; the last point after more than 40 rounds or when the two residuals become
//           equal; 0.0 when they are so from the start.
template <class Function, class Number>
Number steered_search(Function f, Number a, Number b, double tolerance) noexcept {
    constexpr double tiny = 1e-8;  // below it the step is measured absolutely
    constexpr int rounds = 40;

    Number fa = f(a);
    Number fb = f(b);
    if (fa == fb) return Number(0);
    for (int round = 1;; ++round) {
        Number c = a + fa * (b - a) / (fa - fb);
        if (c < 0) c = (a + b) / 2;
        const Number step = fabs(c) < tiny ? fabs(c - a) : fabs((c - a) / c);
        if (step < tolerance) return c;

        const Number fc = f(c);
        Number with_a = fa * fc;
        Number with_b = fb * fc;
        if (with_a < 0 && with_b < 0) {
            with_a = -with_a;
            with_b = -with_b;
        }
        const Number middle = (a + b) / 2;
        if (with_b >= with_a) {
            b = a;
            fb = fa;
        }
        a = c;
        fa = fc;

        if ((middle - a) * (middle - b) < 0) {  // the bracket has not been halved
            const Number ratio = fabs(fa / fb);
            Number e = (a + b) / 2;
            Number fe = 0;
            if (ratio <= 0.3) {
                e = a + 1.5 * ratio * (b - a);
                fe = f(e);
                if (fa * fe >= 0) {
                    e = (a + b) / 2;
                    fe = f(e);
                }
            } else if (ratio < 3) {
                fe = f(e);
            } else {
                e = a;
                fe = fa;
                if (fb * fe >= 0) {
                    e = (a + b) / 2;
                    fe = f(e);
                }
            }
            if (fb * fe >= fa * fe) {
                b = a;
                fb = fa;
            }
            a = e;
            fa = fe;
        }
        if (round > rounds || fa == fb) return a;
    }
}

}  // namespace vaprix
