// SPDX-License-Identifier: MIT
//
// Mathematical functions that accept every finite argument: no domain error, no NaN. Iterations
// rely on them to run through states slightly outside the physical domain.
#pragma once

#include "frame/elementary.hpp"

namespace vaprix {

// sqrt(x) for x > 0, -sqrt(-x) otherwise.
template <class Number>
inline Number signed_sqrt(Number x) noexcept {
    return copysign(sqrt(fabs(x)), x);
}

// ln|x|; -230 at 0.
template <class Number>
inline Number guarded_log(Number x) noexcept {
    const auto zero = x == 0;
    if (machine::none(zero)) return log(fabs(x));
    return machine::select(zero, Number(-230), log(fabs(x)));
}

// exp(x), held between 1e-100 and 1e100.
template <class Number>
inline Number clamped_exp(Number x) noexcept {
    const auto high = x > 230;
    const auto low = x < -230;
    if (machine::none(high | low)) return exp(x);
    return machine::select(high, Number(1e100), machine::select(low, Number(1e-100), exp(x)));
}

// The same of two arguments side by side.
template <class Number>
inline machine::Neighbours<Number> clamped_exp(machine::Neighbours<Number> x) noexcept {
    const auto first = fabs(x.first()) > 230;
    const auto second = fabs(x.second()) > 230;
    if (machine::none(first | second)) return exp(x);
    return {clamped_exp(x.first()), clamped_exp(x.second())};
}

}  // namespace vaprix
