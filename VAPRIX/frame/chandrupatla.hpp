// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

#include "frame/bracketed_secant.hpp"
#include "frame/elementary.hpp"

namespace vaprix {

// Root of f between a and b, where f changes sign, by Chandrupatla's method (Adv. Eng. Software 28
// (1997) 145): inverse quadratic interpolation where the last three points allow it, else halving.
// It needs no smoothness: at a jump through zero it closes in on the jump.
//
// Given:    f  residual, finite;  a, b  ends of the bracket with the residuals there;  tolerance
//           relative width of the bracket that ends the search.
// Returned: the end of the last bracket with the smaller residual, and that residual.
template <class Function, class Number>
Residual<Number> chandrupatla(Function f, Residual<Number> a, Residual<Number> b,
                              double tolerance) noexcept {
    constexpr int rounds = 100;
    Residual<Number> newest = a;
    Residual<Number> other = b;
    Number t = 0.5;
    for (int round = 0;; ++round) {
        const auto& better = fabs(newest.f) < fabs(other.f) ? newest : other;
        const Number width = other.x - newest.x;
        const Number closest = tolerance * fabs(better.x) / fabs(width);
        if (better.f == 0 || !(closest < 0.5) || round == rounds) return better;

        const Number x = newest.x + std::clamp<Number>(t, closest, 1 - closest) * width;
        const Residual<Number> at = {x, f(x)};
        Residual<Number> third = newest;
        if ((at.f < 0) != (newest.f < 0)) {
            third = other;
            other = newest;
        }
        newest = at;

        const Number xi = (newest.x - other.x) / (third.x - other.x);
        const Number phi = (newest.f - other.f) / (third.f - other.f);
        t = 0.5;
        if (phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi) {
            t = newest.f / (other.f - newest.f) * (third.f / (other.f - third.f)) +
                (third.x - newest.x) / (other.x - newest.x) * (newest.f / (third.f - newest.f)) *
                    (other.f / (third.f - other.f));
        }
    }
}

}  // namespace vaprix
