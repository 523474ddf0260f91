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

#include "inverse/volume_limits.hpp"
#include "state/state.hpp"

namespace vaprix {

[[nodiscard]] State of_vh(double v, double h) noexcept;
[[nodiscard]] State of_vs(double v, double s) noexcept;

template <Asked asked>
[[nodiscard]] inline State of_vh(double v, double h) noexcept {
    return of_vh(v, h);
}
template <Asked asked>
[[nodiscard]] inline State of_vs(double v, double s) noexcept {
    return of_vs(v, s);
}
template <Asked asked>
[[nodiscard]] inline State of_dh(double d, double h) noexcept {
    return inverse::is_density(d) ? of_vh(1 / d, h) : refused(ErrorCode::outside_range);
}
template <Asked asked>
[[nodiscard]] inline State of_ds(double d, double s) noexcept {
    return inverse::is_density(d) ? of_vs(1 / d, s) : refused(ErrorCode::outside_range);
}

}  // namespace vaprix
