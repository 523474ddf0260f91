// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

namespace vaprix {

// A value and its slope at one point.
struct Tangent {
    double y;
    double y_x;
};

struct NewtonRoot {
    double x;
    bool converged;
};

// Root of y(x) = y by Newton's method that asks for the slope once: later slopes follow from the
// values, m1 = 2 (y1 - y0)/(x1 - x0) - m0, exact where y bends evenly.
//
// Given:    tangent  y and its slope at x;  value  y alone;  x  start value;  tolerance  relative
//           step that ends the iteration: choose the root of what is wanted.
// Returned: the root, converged; not converged after 8 rounds, which a start value in the root's
//           neighbourhood never needs, or for a NaN.
template <class TangentOf, class ValueOf>
NewtonRoot newton_secant(TangentOf tangent, ValueOf value, double y, double x,
                         double tolerance) noexcept {
    constexpr int rounds = 8;
    Tangent at = tangent(x);
    for (int round = 0; round < rounds; ++round) {
        const double step = (y - at.y) / at.y_x;
        x += step;
        if (std::fabs(step) < tolerance * x) return {x, true};
        const double y_new = value(x);
        at = {y_new, 2 * (y_new - at.y) / step - at.y_x};
    }
    return {x, false};
}

// Two values and their slopes at one point (x, y).
struct TangentPair {
    double a, a_x, a_y;
    double b, b_x, b_y;
};

struct Point {
    double x;
    double y;
};

struct NewtonPoint {
    Point at;
    bool converged;
};

// Newton's step in two variables: where the tangent planes of a and b have risen by a_left and
// b_left.
[[nodiscard]] inline Point newton_step(const TangentPair& f, double a_left,
                                       double b_left) noexcept {
    const double determinant = f.a_x * f.b_y - f.a_y * f.b_x;
    return {(a_left * f.b_y - f.a_y * b_left) / determinant,
            (f.a_x * b_left - f.b_x * a_left) / determinant};
}

// Corners between which a Newton iteration is held.
struct Box {
    Point low;
    Point high;
};

// Point at which a = a_given and b = b_given, by Newton's method in two variables.
//
// Given:    tangents  a and b with their slopes at (x, y);  at  start point;  tolerance  relative
//           step of both variables that ends the iteration;  box  which no step leaves, after
//           three that would have the search is given up.
// Returned: the point, converged; the last one, not converged, after 20 rounds.
template <class TangentsOf>
NewtonPoint newton(TangentsOf tangents, double a_given, double b_given, Point at, double tolerance,
                   const Box* box = nullptr) noexcept {
    constexpr int rounds = 20;
    constexpr int patience = 3;
    int held_back = 0;
    for (int round = 0; round < rounds; ++round) {
        const TangentPair f = tangents(at.x, at.y);
        const Point step = newton_step(f, a_given - f.a, b_given - f.b);
        at.x += step.x;
        at.y += step.y;
        if (std::fabs(step.x) < tolerance * at.x && std::fabs(step.y) < tolerance * at.y) {
            return {at, true};
        }
        if (box != nullptr) {
            const Point held{std::clamp(at.x, box->low.x, box->high.x),
                             std::clamp(at.y, box->low.y, box->high.y)};
            if ((held.x != at.x || held.y != at.y) && ++held_back > patience) return {held, false};
            at = held;
        }
    }
    return {at, false};
}

}  // namespace vaprix
