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

#include "state/state.hpp"

namespace vaprix {

[[nodiscard]] State lowest_of_th(double t, double h, const Asked& asked) noexcept;
[[nodiscard]] State next_of_th(double t, double h, const Asked& asked) noexcept;
[[nodiscard]] State lowest_of_ts(double t, double s, const Asked& asked) noexcept;
[[nodiscard]] State next_of_ts(double t, double s, const Asked& asked) noexcept;

template <Asked asked>
[[nodiscard]] inline State lowest_of_th(double t, double h) noexcept {
    return lowest_of_th(t, h, asked);
}
template <Asked asked>
[[nodiscard]] inline State next_of_th(double t, double h) noexcept {
    return next_of_th(t, h, asked);
}
template <Asked asked>
[[nodiscard]] inline State lowest_of_ts(double t, double s) noexcept {
    return lowest_of_ts(t, s, asked);
}
template <Asked asked>
[[nodiscard]] inline State next_of_ts(double t, double s) noexcept {
    return next_of_ts(t, s, asked);
}

}  // namespace vaprix
