// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/bracketed_secant.hpp"

namespace vaprix {

// Root of f between a and b, where f changes sign, by Chandrupatla's method (Adv. Eng. Software 28
// (1997) 145): inverse quadratic interpolation where the last three points allow it, else halving.
// It needs no smoothness: at a jump through zero it closes in on the jump.
//
// Given:    f  residual, finite;  a, b  ends of the bracket with the residuals there;  tolerance
//           relative width of the bracket that ends the search.
// Returned: the end of the last bracket with the smaller residual, and that residual.
template <class Function>
Residual chandrupatla(Function f, Residual a, Residual b, double tolerance) noexcept {
    constexpr int rounds = 100;
    Residual newest = a;
    Residual other = b;
    double t = 0.5;
    for (int round = 0;; ++round) {
        const auto& better = std::fabs(newest.f) < std::fabs(other.f) ? newest : other;
        const double width = other.x - newest.x;
        const double closest = tolerance * std::fabs(better.x) / std::fabs(width);
        if (better.f == 0 || !(closest < 0.5) || round == rounds) return better;

        const double x = newest.x + std::clamp(t, closest, 1 - closest) * width;
        const Residual at = {x, f(x)};
        Residual third = newest;
        if ((at.f < 0) != (newest.f < 0)) {
            third = other;
            other = newest;
        }
        newest = at;

        const double xi = (newest.x - other.x) / (third.x - other.x);
        const double phi = (newest.f - other.f) / (third.f - other.f);
        t = 0.5;
        if (phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi) {
            t = newest.f / (other.f - newest.f) * (third.f / (other.f - third.f)) +
                (third.x - newest.x) / (other.x - newest.x) * (newest.f / (third.f - newest.f)) *
                    (other.f / (third.f - other.f));
        }
    }
}

}  // namespace vaprix
