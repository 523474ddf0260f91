// SPDX-License-Identifier: MIT
//
// States of (T, v) and (T, density).
// Given:    t  temperature, K, 273.15 to 2273.15;  v  specific volume, m3/kg, or d  density, kg/m3.
// Refused:  a negative v or d, -10003; any other that neither (p, T) nor wet steam has, -10057.
// Notes:    A volume within a rounding of its reciprocal from that of a saturated phase or of a limit
//           of pressure counts as that one. From 623.15 to 623.155 K wet steam is tested before region 2.
// Source:   IAPWS R7-97(2012), section 2; Eqs. (7), (15), (28), (30) and (32), with the volume
//           solved for the pressure in regions 1, 2 and 5.
#pragma once

#include "inverse/volume_limits.hpp"
#include "regions/region3.hpp"
#include "state/state.hpp"

namespace vaprix::inverse {

[[nodiscard]] State of_tv(double t, double v, const Asked& asked) noexcept;

template <Asked asked>
[[nodiscard]] inline State of_tv(double t, double v) noexcept {
    State state = of_tv(t, v, asked);
    state.v = v;
    return state;
}

// Region 3 has the pressure of d itself beside properties of d, that of 1/(1/d) alone: the two
// differ by a rounding. A refused state keeps t and d.
template <Asked asked>
[[nodiscard]] inline State of_td(double t, double d) noexcept {
    const ErrorCode code = d < 0 ? ErrorCode::negative_density : ErrorCode::property_range;
    if (!is_density(d)) return {.t = t, .d = d, .refusal = code};
    State state = of_tv<asked>(t, 1 / d);
    state.t = t;
    state.d = d;
    if constexpr (asked.p && asked.single) {
        if (state.region == Region::three) state.p = region3::p(d, t);
    }
    return state;
}

// Wet steam alone: anything else is refused, -10058.
template <Asked asked>
[[nodiscard]] inline State wet_of_td(double t, double d) noexcept {
    const State state = of_td<asked>(t, d);
    if (state.region == Region::wet) return state;
    return refused(d < 0 ? ErrorCode::negative_density : ErrorCode::not_wet_steam);
}

// Fugacity has codes of its own outside.
template <Asked asked>
[[nodiscard]] inline State fugacity_of_td(double t, double d) noexcept {
    if (t < T_min) return refused(ErrorCode::fugacity_below_t_min);
    if (!(d > 0)) return refused(ErrorCode::fugacity_not_positive);
    if (t > T_max) return refused(ErrorCode::fugacity_above_t_max);
    return of_td<asked>(t, d);
}

}  // namespace vaprix::inverse
