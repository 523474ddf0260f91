// SPDX-License-Identifier: MIT
//
// The elementary functions of a number. The equations are templates over the number that they are
// evaluated with; a kind of number beside double takes part by its own Elementary<Number>.
#pragma once

#include <cmath>
#include <type_traits>

#include "frame/inline.hpp"

namespace vaprix {

template <class Number>
struct Elementary;

template <>
struct Elementary<double> {
    static double fabs(double x) noexcept { return std::fabs(x); }
    // the compiler's: MinGW's std::copysign takes the numbers apart as integers
    static double copysign(double x, double y) noexcept { return __builtin_copysign(x, y); }
    static double sqrt(double x) noexcept { return std::sqrt(x); }
    static double cbrt(double x) noexcept { return std::cbrt(x); }
    static double exp(double x) noexcept { return std::exp(x); }
    static double log(double x) noexcept { return std::log(x); }
#ifdef _WIN32
    // MinGW's is of x87, see msvcrt.def. The second term takes back the rounding of 1 + x.
    static double log1p(double x) noexcept {
        const double u = 1 + x;
        return std::log(u) + (x - (u - 1)) / u;
    }
#else
    static double log1p(double x) noexcept { return std::log1p(x); }
#endif
    static double pow(double x, double y) noexcept { return std::pow(x, y); }
};

template <class Number>
VAPRIX_INLINE Number fabs(Number x) noexcept {
    return Elementary<Number>::fabs(x);
}

template <class Number>
VAPRIX_INLINE Number copysign(Number x, std::type_identity_t<Number> y) noexcept {
    return Elementary<Number>::copysign(x, y);
}

template <class Number>
VAPRIX_INLINE Number sqrt(Number x) noexcept {
    return Elementary<Number>::sqrt(x);
}

template <class Number>
VAPRIX_INLINE Number cbrt(Number x) noexcept {
    return Elementary<Number>::cbrt(x);
}

template <class Number>
VAPRIX_INLINE Number exp(Number x) noexcept {
    return Elementary<Number>::exp(x);
}

template <class Number>
VAPRIX_INLINE Number log(Number x) noexcept {
    return Elementary<Number>::log(x);
}

template <class Number>
VAPRIX_INLINE Number log1p(Number x) noexcept {
    return Elementary<Number>::log1p(x);
}

template <class Number>
VAPRIX_INLINE Number pow(Number x, std::type_identity_t<Number> y) noexcept {
    return Elementary<Number>::pow(x, y);
}

}  // namespace vaprix
