// SPDX-License-Identifier: MIT
//
// States of (T, h) and (T, s).
// Given:    t  temperature, K, 273.15 to 2273.15;  h  specific enthalpy, kJ/kg, or s  specific
//           entropy, kJ/(kg K).
// Returned: the state that reproduces the pair through the basic equations, for both families: there
//           is no backward equation. Lowest is the one of lowest pressure, next the next one: liquid
//           of rising enthalpy, which wet steam or hot liquid of falling enthalpy precedes; cold
//           liquid, of which s has a maximum along the isotherm below 277.13 K, where of three
//           states the last is not offered.
// Refused:  a pair that neither (p, T) nor wet steam reaches, -10055.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with h or s solved for the
//           pressure, in region 3 for the density.
#pragma once

#include "inverse/second_variable.hpp"

namespace vaprix::inverse {

// Y is Enthalpy or Entropy.
template <class Y>
[[nodiscard]] State lowest_state_ty(double t, double y, const Asked& asked) noexcept;
template <class Y>
[[nodiscard]] State next_state_ty(double t, double y, const Asked& asked) noexcept;

template <class Y, Asked asked>
[[nodiscard]] State lowest_of_ty(double t, double y) noexcept {
    return lowest_state_ty<Y>(t, y, asked);
}
template <class Y, Asked asked>
[[nodiscard]] State next_of_ty(double t, double y) noexcept {
    return next_state_ty<Y>(t, y, asked);
}

}  // namespace vaprix::inverse
