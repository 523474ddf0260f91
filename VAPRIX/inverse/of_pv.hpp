// SPDX-License-Identifier: MIT
//
// States of (p, v) and (density, p).
// Given:    p  pressure, MPa, 0.0006112127 to 100;  v  specific volume, m3/kg;  d  density, kg/m3.
// Refused:  a state that (p, T) does not reach and that is not wet steam, -10055.
// Notes:    there is no backward equation: both families answer by the state that reproduces p and
//           v through the basic equations. Cold liquid is densest at some temperature; the plain
//           state is the one at or above it, the cold one the one below.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with the volume solved for the
//           temperature.
#pragma once

#include "inverse/volume_limits.hpp"
#include "regions/saturation_line.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {

// The state, of wet steam without its quality.
[[nodiscard]] State solve_pv(double p, double v) noexcept;
[[nodiscard]] State solve_cold_pv(double p, double v) noexcept;

template <Asked asked>
[[nodiscard]] State of_pv(double p, double v) noexcept {
    return with_quality<asked, property::v>(solve_pv(p, v), v);
}

template <Asked>
inline constexpr auto cold_of_pv = solve_cold_pv;

// Wet steam with the saturated phases at the backward saturation temperature.
template <Asked asked>
[[nodiscard]] State wet_of_pv_b(double p, double v) noexcept {
    const State state = solve_pv(p, v);
    return state.region == Region::wet ? wet_state_by<asked, property::v>(p, tsat(p), v) : state;
}

template <Asked asked>
[[nodiscard]] State of_dp(double d, double p) noexcept {
    return is_density(d) ? of_pv<asked>(p, 1 / d) : outside;
}

template <Asked asked>
[[nodiscard]] State cold_of_dp(double d, double p) noexcept {
    return is_density(d) ? cold_of_pv<asked>(p, 1 / d) : outside;
}

}  // namespace vaprix::inverse
