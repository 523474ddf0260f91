// SPDX-License-Identifier: MIT
//
// States of (h, s).
// Given:    h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K).
// Refused:  a state that (p, T) does not reach and that is not wet steam, -10055.
// Notes:    the B-family answers by the backward equations: p(h, s), then T(p, h), and in region 3
//           v(p, s); wet steam by Tsat(h, s), and below its range, as region 5, by the solution of
//           the basic equations. That solution decides between regions 1 and 3 and regions 2 and 3
//           where their boundary equations do not tell. The O-family answers by the state that reproduces h and s through
//           the basic equations.
// Source:   IAPWS SR2-01(2014), IAPWS SR4-04(2014); IAPWS R7-97(2012) for T(p, h) and the O-family;
//           IAPWS SR3-03(2014) for T(p, h) and v(p, s) of region 3.
#pragma once

#include "inverse/of_py.hpp"

namespace vaprix::inverse {

// The state that reproduces h and s through the basic equations, in whichever region it lies; of
// wet steam without its ends.
[[nodiscard]] State solve_hs(double h, double s) noexcept;

// Pressure and region by the backward equations, on the limits of pressure if it is beyond them by
// the error of the backward equation; t is 0 where it is still to be had from p and h. Wet steam
// and states without a backward equation are complete but for the ends.
[[nodiscard]] State start_hs_b(double h, double s) noexcept;

// What is asked for of a state that has p and t, and in region 3 the density.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State complete_hs(const State& state, double h) noexcept {
    if (state.region == Region::wet) return wet_state_by<asked, property::h>(state.p, state.t, h);
    const bool is_complete = !asked.density || state.d > 0 || state.region == Region::none;
    return is_complete ? state : with_volume<asked>(state);
}

template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_hs_b(double h, double s) noexcept {
    const State start = start_hs_b(h, s);
    if (start.region == Region::none || start.t > 0) return complete_hs<asked>(start, h);
    if constexpr (asked.density) {
        if (start.region == Region::three) {
            const double v = region3::v_ps(start.p, s);
            return {.region = Region::three, .p = start.p, .d = 1 / v, .v = v};
        }
    }
    return in_region_py_b<Enthalpy, asked>(start.region, start.p, h);
}

template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_hs_o(double h, double s) noexcept {
    return complete_hs<asked>(solve_hs(h, s), h);
}

}  // namespace vaprix::inverse
