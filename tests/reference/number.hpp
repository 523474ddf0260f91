// SPDX-License-Identifier: MIT
// The two numbers of the evaluator: double and quadruple precision (IEEE binary128, 113 bits).
// The functions of the compiler's quadruple-precision library are declared here because its header
// lies on the search path of one compiler only.
#pragma once

#include <cmath>
#include <string>

// Doubles are promoted to quadruple precision on purpose, everywhere in the yardstick.
#pragma GCC diagnostic ignored "-Wdouble-promotion"

extern "C" {
__float128 expq(__float128) noexcept;
__float128 logq(__float128) noexcept;
__float128 powq(__float128, __float128) noexcept;
__float128 sqrtq(__float128) noexcept;
__float128 strtoflt128(const char*, char**) noexcept;
}

namespace published {

using Quad = __float128;

inline double magnitude(double x) { return std::fabs(x); }
inline double exponential(double x) { return std::exp(x); }
inline double logarithm(double x) { return std::log(x); }
inline double root(double x) { return std::sqrt(x); }
inline double power(double x, double e) { return std::pow(x, e); }

inline Quad magnitude(Quad x) { return x < 0 ? -x : x; }
inline Quad exponential(Quad x) { return expq(x); }
inline Quad logarithm(Quad x) { return logq(x); }
inline Quad root(Quad x) { return sqrtq(x); }
// An integer power by repeated squaring, which is many times faster.
inline Quad power(Quad x, Quad e) {
    const int n = static_cast<int>(e);
    if (n != e) return powq(x, e);
    Quad result = 1;
    for (unsigned bits = static_cast<unsigned>(n < 0 ? -n : n); bits != 0; bits >>= 1) {
        if (bits & 1u) result *= x;
        x *= x;
    }
    return n < 0 ? 1 / result : result;
}

// A decimal text to the full precision of the number.
template <class Number>
Number number(const std::string& text);
template <>
inline double number(const std::string& text) {
    return std::stod(text);
}
template <>
inline Quad number(const std::string& text) {
    return strtoflt128(text.c_str(), nullptr);
}

}  // namespace published
