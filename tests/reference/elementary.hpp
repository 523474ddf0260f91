// SPDX-License-Identifier: MIT
// The elementary functions in quadruple precision, for the library's equations as templates over
// the number.
#pragma once

#include "number.hpp"

#include "frame/elementary.hpp"

extern "C" {
__float128 fabsq(__float128) noexcept;
__float128 copysignq(__float128, __float128) noexcept;
__float128 cbrtq(__float128) noexcept;
}

template <>
struct vaprix::Elementary<__float128> {
    using Quad = __float128;
    static Quad fabs(Quad x) noexcept { return fabsq(x); }
    static Quad copysign(Quad x, Quad y) noexcept { return copysignq(x, y); }
    static Quad sqrt(Quad x) noexcept { return sqrtq(x); }
    static Quad cbrt(Quad x) noexcept { return cbrtq(x); }
    static Quad exp(Quad x) noexcept { return expq(x); }
    static Quad log(Quad x) noexcept { return logq(x); }
    static Quad to_minus_three_fifths(Quad x) noexcept { return powq(x, Quad(-3) / 5); }
};

template <>
class vaprix::RealPowers<__float128> {
public:
    explicit RealPowers(__float128 base) noexcept : x(base) {}
    [[nodiscard]] __float128 to(__float128 y) const noexcept { return powq(x, y); }

private:
    __float128 x;
};
