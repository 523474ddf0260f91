// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace vaprix {

// Root of f from a start bracket by secant steps that are steered: after a step that did not halve
// the bracket an extra point is taken, extrapolated beyond the secant point or at the middle. This
// is the search for the temperature of region 5, where no backward equation exists.
//
// Given:    f  residual;  a, b  ends of the start bracket;  tolerance  relative step that ends the
//           search (absolute below 1e-8).
// Returned: the root; the last point after more than 40 rounds or when the two residuals become
//           equal; 0.0 when they are so from the start.
template <class Residual>
double steered_search(Residual f, double a, double b, double tolerance) noexcept {
    constexpr double tiny = 1e-8;  // below it the step is measured absolutely
    constexpr int rounds = 40;

    double fa = f(a);
    double fb = f(b);
    if (fa == fb) return 0.0;
    for (int round = 1;; ++round) {
        double c = a + fa * (b - a) / (fa - fb);
        if (c < 0) c = (a + b) / 2;
        const double step = std::fabs(c) < tiny ? std::fabs(c - a) : std::fabs((c - a) / c);
        if (step < tolerance) return c;

        const double fc = f(c);
        double with_a = fa * fc;
        double with_b = fb * fc;
        if (with_a < 0 && with_b < 0) {
            with_a = -with_a;
            with_b = -with_b;
        }
        const double middle = (a + b) / 2;
        if (with_b >= with_a) {
            b = a;
            fb = fa;
        }
        a = c;
        fa = fc;

        if ((middle - a) * (middle - b) < 0) {  // the bracket has not been halved
            const double ratio = std::fabs(fa / fb);
            double e = (a + b) / 2;
            double fe = 0;
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
