// SPDX-License-Identifier: MIT
//
// Mathematical functions that accept every finite argument: no domain error, no NaN. Iterations
// rely on them to run through states slightly outside the physical domain.
#pragma once

#include <cmath>

namespace vaprix {

// sqrt(x) for x > 0, -sqrt(-x) otherwise.
inline double signed_sqrt(double x) noexcept { return std::copysign(std::sqrt(std::fabs(x)), x); }

// ln|x|; -230 at 0.
inline double guarded_log(double x) noexcept { return x != 0 ? std::log(std::fabs(x)) : -230.0; }

// log10|x|; -100 at 0.
inline double guarded_log10(double x) noexcept {
    return x != 0 ? std::log10(std::fabs(x)) : -100.0;
}

// exp(x), held between 1e-100 and 1e100.
inline double clamped_exp(double x) noexcept {
    if (x > 230.0) return 1e100;
    if (x < -230.0) return 1e-100;
    return std::exp(x);
}

// acos(x), continued outside -1..1 by asin(1/x) - pi/2 (x > 1) and asin(1/x) + 3 pi/2 (x < -1).
inline double extended_acos(double x) noexcept {
    if (x > 1) return std::asin(1 / x) - 1.5707963267948966;
    if (x < -1) return std::asin(1 / x) + 4.71238898038469;
    return std::acos(x);
}

}  // namespace vaprix
