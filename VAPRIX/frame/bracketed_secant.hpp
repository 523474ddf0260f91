// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

namespace vaprix {

// A point and the residual there.
struct Residual {
    double x;
    double f;
};

struct BracketedRoot {
    double x;
    bool converged;
};

// Root of f between a and b, where f changes sign: regula falsi with extra points that pull the far
// end of the bracket in: made for the density of region 3.
//
// Given:    f  residual;  a, b  ends of the bracket;  tolerance  relative step that ends the
//           iteration (absolute below 1e-8): the step from one round's secant point to the next, so
//           that the two points behind an accepted secant are both as close as that and its own
//           error is of second order in the tolerance.
// Returned: the root, converged; the last point, not converged, after 40 rounds.
template <class Function>
BracketedRoot bracketed_secant(Function f, Residual a, Residual b, double tolerance) noexcept {
    constexpr double tiny = 1e-8;       // |x| below which the step is measured absolutely
    constexpr double last_step = 1e-5;  // absolute step that the last round accepts as well
    constexpr int rounds = 40;

    double far = a.x;
    double f_far = a.f;
    double near = b.x;  // the newest point
    double f_near = b.f;
    if (f_far == 0) return {far, true};
    if (f_near == 0) return {near, true};

    // makes x the newest point; the point kept with it is the one on the other side of the root
    const auto advance = [&](double x, double fx) {
        if ((fx < 0) != (f_near < 0)) {
            far = near;
            f_far = f_near;
        }
        near = x;
        f_near = fx;
    };

    double previous = std::numeric_limits<double>::infinity();  // secant point of the round before
    for (int round = 1; round <= rounds; ++round) {
        double x = near - f_near * (far - near) / (f_far - f_near);
        // a secant point at an end of the bracket has converged; one beyond it, or none, is
        // replaced
        if (!((x - near) * (x - far) <= 0)) x = 0.5 * (near + far);

        const double step = std::fabs(x - previous);
        previous = x;
        if (std::fabs(x) < tiny ? step < tolerance : step < tolerance * std::fabs(x))
            return {x, true};
        if (round == rounds && step < last_step) return {x, true};

        const double fx = f(x);
        if (fx == 0 || fx == f_near) return {x, true};
        const double ratio = std::fabs(fx / f_near);
        advance(x, fx);

        if (ratio < 3) {  // aim beyond the root, or halve
            const double extra =
                ratio <= 0.3 ? near + 1.5 * ratio * (far - near) : 0.5 * (near + far);
            const double f_extra = f(extra);
            if (f_extra == 0) return {extra, true};
            advance(extra, f_extra);
        }
    }
    return {near, false};
}

}  // namespace vaprix
