// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <type_traits>

#include "frame/elementary.hpp"

namespace vaprix {

// A value and its slope at one point.
template <class Number>
struct Tangent {
    Number y;
    Number y_x;
};
template <class Number>
Tangent(Number, Number) -> Tangent<Number>;

template <class Number>
struct NewtonRoot {
    Number x;
    bool converged;
};

// Root of y(x) = y by Newton's method that asks for the slope once: later slopes follow from the
// values, m1 = 2 (y1 - y0)/(x1 - x0) - m0, exact where y bends evenly.
//
// Given:    tangent  y and its slope at x;  value  y alone;  x  start value;  tolerance  relative
//           step that ends the iteration: choose the root of what is wanted.
// Returned: the root, converged; not converged after 8 rounds, which a start value in the root's
//           neighbourhood never needs, or for a NaN.
// Notes:    beside bracketed_newton because keeping a bracket costs up to half of the whole search
//           where two evaluations do.
template <class TangentOf, class ValueOf, class Number>
NewtonRoot<Number> newton_secant(TangentOf tangent, ValueOf value, Number y, Number x,
                                 double tolerance) noexcept {
    constexpr int rounds = 8;
    Tangent<Number> at = tangent(x);
    for (int round = 0; round < rounds; ++round) {
        const Number step = (y - at.y) / at.y_x;
        x += step;
        if (fabs(step) < tolerance * x) return {x, true};
        const Number y_new = value(x);
        at = {y_new, 2 * (y_new - at.y) / step - at.y_x};
    }
    return {x, false};
}

// Two values and their slopes at one point (x, y).
template <class Number>
struct TangentPair {
    Number a, a_x, a_y;
    Number b, b_x, b_y;
};
template <class Number>
TangentPair(Number, Number, Number, Number, Number, Number) -> TangentPair<Number>;

template <class Number>
struct Point {
    Number x;
    Number y;
};
template <class Number>
Point(Number, Number) -> Point<Number>;

template <class Number>
struct NewtonPoint {
    Point<Number> at;
    bool converged;
};

// Newton's step in two variables: where the tangent planes of a and b have risen by a_left and
// b_left.
template <class Number>
[[nodiscard]] inline Point<Number> newton_step(const TangentPair<Number>& f, Number a_left,
                                               Number b_left) noexcept {
    const Number determinant = f.a_x * f.b_y - f.a_y * f.b_x;
    return {(a_left * f.b_y - f.a_y * b_left) / determinant,
            (f.a_x * b_left - f.b_x * a_left) / determinant};
}

// Corners between which a Newton iteration is held.
template <class Number>
struct Box {
    Point<Number> low;
    Point<Number> high;
};
template <class Number>
[[nodiscard]] inline bool within(const Box<Number>& box, Point<Number> at) noexcept {
    return at.x >= box.low.x && at.x <= box.high.x && at.y >= box.low.y && at.y <= box.high.y;
}

// A variable after a step; by_ratio for a pressure on whose logarithm a and b depend: the
// exponential of the relative step to third order.
inline constexpr auto by_step = [](auto x, auto step) noexcept { return x + step; };
inline constexpr auto by_ratio = [](auto x, auto step) noexcept {
    const auto relative = step / x;
    return x * ((2 + relative) / (2 - relative));
};

// Point at which a = a_given and b = b_given, by Newton's method in two variables.
//
// Given:    tangents  a and b with their slopes at (x, y);  at  start point;  settled  of the point
//           after a step, the step and what was left of a and b before it: whether it is the last;
//           box  which no step leaves, after `patience` that would have the search is given up;
//           advance  how x takes a step.
// Returned: the point, converged; the last one, not converged, after 20 rounds.
template <auto advance = by_step, class TangentsOf, class Number, class Settled>
NewtonPoint<Number> newton(TangentsOf tangents, Number a_given, Number b_given,
                           std::type_identity_t<Point<Number>> at, Settled settled,
                           const std::type_identity_t<Box<Number>>* box, int patience) noexcept {
    constexpr int rounds = 20;
    int held_back = 0;
    for (int round = 0; round < rounds; ++round) {
        if (box != nullptr && !within(*box, at)) {
            at = {std::clamp(at.x, box->low.x, box->high.x),
                  std::clamp(at.y, box->low.y, box->high.y)};
            if (++held_back > patience) return {at, false};
        }
        const TangentPair<Number> f = tangents(at.x, at.y);
        const Point<Number> left{a_given - f.a, b_given - f.b};
        const Point<Number> step = newton_step(f, left.x, left.y);
        at = {advance(at.x, step.x), at.y + step.y};
        if (settled(at, step, left)) return {at, true};
    }
    return {at, false};
}

// The same with a relative step of both variables that ends the iteration.
template <class TangentsOf, class Number>
NewtonPoint<Number> newton(TangentsOf tangents, Number a_given, Number b_given,
                           std::type_identity_t<Point<Number>> at, double tolerance,
                           const std::type_identity_t<Box<Number>>* box = nullptr) noexcept {
    constexpr int patience = 3;
    const auto small = [tolerance](Point<Number> point, Point<Number> step,
                                   Point<Number> /* left */) noexcept {
        return fabs(step.x) < tolerance * point.x && fabs(step.y) < tolerance * point.y;
    };
    return newton(tangents, a_given, b_given, at, small, box, patience);
}

}  // namespace vaprix
