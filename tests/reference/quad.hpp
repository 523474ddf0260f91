// SPDX-License-Identifier: MIT
// Quadruple precision (IEEE binary128, 113 bits) for the yardstick of the accuracy tests.
// The functions of the compiler's quadruple-precision library are declared here because its header
// lies on the search path of one compiler only.
#pragma once

// Doubles are promoted to quadruple precision on purpose, everywhere in the yardstick.
#pragma GCC diagnostic ignored "-Wdouble-promotion"

extern "C" {
__float128 expq(__float128) noexcept;
__float128 logq(__float128) noexcept;
__float128 powq(__float128, __float128) noexcept;
__float128 sqrtq(__float128) noexcept;
__float128 strtoflt128(const char*, char**) noexcept;
}

namespace reference {

using Quad = __float128;

inline Quad magnitude(Quad x) { return x < 0 ? -x : x; }

inline Quad square(Quad x) { return x * x; }

// x^n of an integer n by repeated squaring.
inline Quad power(Quad x, int n) {
    Quad result = 1;
    for (unsigned bits = static_cast<unsigned>(n < 0 ? -n : n); bits != 0; bits >>= 1) {
        if (bits & 1u) result *= x;
        x *= x;
    }
    return n < 0 ? 1 / result : result;
}

namespace literals {
// Decimal constants to full precision: 0.461526_q. Costly, hence for namespace-scope constants.
inline Quad operator""_q(const char* digits) { return strtoflt128(digits, nullptr); }
}  // namespace literals

}  // namespace reference
