// SPDX-License-Identifier: MIT
#pragma once

#include "frame/elementary.hpp"

namespace vaprix {

// Root of f between a and b by the Pegasus method (Dowell and Jarratt, BIT 12 (1972) 503): regula
// falsi in which the function value kept at the far end is scaled down by fb/(fb + fc).
//
// Given:    f  residual;  a, b  ends of the bracket, not checked for a change of sign (a bracket
//           without one is extrapolated by secant steps);  width  relative width |(b - a)/b| that
//           ends the search.
// Returned: the root; 0.0 when 80 rounds do not settle, deliberately a value and not a failure.
// Notes:    all comparisons are strict; a NaN leaves at the latest with the last round.
template <class Function, class Number>
Number pegasus(Function f, Number a, Number b, double width) noexcept {
    constexpr double flat = 1e-15;        // least |fb - fa| a secant is drawn through
    constexpr double root = 1e-15;        // |f| of a new point that counts as zero
    constexpr double start_root = 1e-16;  // |f| of a start point that counts as zero
    constexpr double settled = 1e-5;      // |f| beyond which a narrow bracket is not trusted
    constexpr int rounds = 80;

    Number fa = f(a);
    Number fb = f(b);
    const auto better = [&] { return fabs(fa) > fabs(fb) ? b : a; };
    const auto narrow = [&] { return fabs((b - a) / b) < width; };

    if (narrow()) return better();
    if (fabs(fa) < start_root) return a;
    if (fabs(fb) < start_root) return b;
    for (int round = 0; round < rounds; ++round) {
        if (fabs(fb - fa) < flat) return better();
        const Number c = b - fb / ((fb - fa) / (b - a));
        const Number fc = f(c);
        if (fabs(fc) < root) return c;
        if (fb * fc < 0) {
            a = b;
            fa = fb;
            b = c;
            fb = fc;
        } else if (fb * fc > 0) {
            fa = fa * fb / (fb + fc);
            b = c;
            fb = fc;
        }
        if (narrow() && (fabs(fa) < settled || fabs(fb) < settled)) return better();
    }
    return Number(0);
}

}  // namespace vaprix
