// SPDX-License-Identifier: MIT
//
// States of (v, h), (v, s), (density, h) and (density, s), wet steam included, for both families by
// the basic equations: the pair is reproduced to rounding.
// Given:    v  specific volume, m3/kg, or d  density, kg/m3;  h  specific enthalpy, kJ/kg, or
//           s  specific entropy, kJ/(kg K).
// Refused:  a pair that neither (p, T) nor wet steam reaches, -10055.
// Notes:    Where two regions meet, the one that owns the limit for (p, T) answers wherever its
//           equation reproduces the pair, the neighbour only where it does not.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32).
#pragma once

#include "inverse/second_variable.hpp"
#include "inverse/volume_limits.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {

// Y is Enthalpy or Entropy. The quality of wet steam is left open.
template <class Y>
[[nodiscard]] State solve_vy(double v, double y) noexcept;

template <class Y, Asked asked>
[[nodiscard]] State of_vy(double v, double y) noexcept {
    return with_quality<asked, property::v>(solve_vy<Y>(v, y), v);
}

template <class Y, Asked asked>
[[nodiscard]] State of_dy(double d, double y) noexcept {
    return is_density(d) ? of_vy<Y, asked>(1 / d, y) : outside;
}

}  // namespace vaprix::inverse
