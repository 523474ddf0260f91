// SPDX-License-Identifier: MIT
//
// Boundary of regions 2 and 3, 623.15 K and 16.5292 MPa to 863.15 K and 100 MPa.
// Source: IAPWS R7-97(2012), Eqs. (5) and (6), Table 1.
#pragma once

#include "frame/guarded_math.hpp"
#include "regions/tables/b23.hpp"

namespace vaprix {

// Pressure of the boundary, MPa, at any temperature t, K: Eq. (5), pi = n1 + n2 theta + n3 theta^2.
template <class Number>
[[nodiscard]] inline Number p_b23(Number t) noexcept {
    constexpr const auto& n = tables::b23;
    return (n[2] * t + n[1]) * t + n[0];
}

// Temperature of the boundary, K, at any pressure p, MPa: Eq. (6), theta = n4 + ((pi -
// n5)/n3)^(1/2).
template <class Number>
[[nodiscard]] inline Number t_b23(Number p) noexcept {
    constexpr const auto& n = tables::b23;
    // 1/n3 to 14 digits: regions of (p, h) and (p, s) have always been decided with this rounding.
    constexpr double n3_reciprocal = 981.06832075625;
    return n[3] + signed_sqrt((p - n[4]) * n3_reciprocal);
}

}  // namespace vaprix
