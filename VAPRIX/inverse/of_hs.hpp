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

#include <algorithm>

#include "inverse/of_py.hpp"
#include "inverse/region_hs.hpp"

namespace vaprix::inverse {

// The state that reproduces h and s through the basic equations, in whichever region it lies; of
// wet steam without its ends.
[[nodiscard]] State solve_hs(double h, double s) noexcept;

// Pressure and region by the backward equations, on the limits of pressure if it is beyond them by
// the error of the backward equation; t is 0 where it is still to be had from p and h. Wet steam
// and states without a backward equation are complete but for the ends.
[[nodiscard]] inline State start_hs_b(double h, double s) noexcept {
    // How far the backward equations may be from the basic ones, with a margin: closer to a limit
    // than this it takes the exact state to tell on which side of it the given one is.
    constexpr double p1_error = 0.02;         // MPa
    constexpr double p_error = 2e-4;          // relative, regions 2 and 3
    constexpr double t_error = 0.05;          // K
    constexpr double h_error = 0.1;           // kJ/kg, on the isotherm 1073.15 K
    constexpr double s_warm_liquid = 0.0015;  // from here region 1 is above 273.15 K + t_error

    auto [region, neighbour] = region_unlimited(h, s);
    if (neighbour != Region::none && solve_hs(h, s).region == neighbour) region = neighbour;
    State state{.region = region, .refusal = ErrorCode::outside_range};
    bool surely_inside = false;
    if (region == Region::none) return state;
    if (region == Region::five) return solve_hs(h, s);
    if (region == Region::wet) {
        if (s < boundaries_hs::s_vapour_13) return solve_hs(h, s);
        state.t = std::clamp(tsat_hs(h, s), T_min, T_13);
        surely_inside = state.t > T_min + t_error;
    } else if (region == Region::one) {
        state.p = region1::p_hs(h, s);
        surely_inside = state.p < p_max - p1_error && s > s_warm_liquid;
    } else if (region == Region::two) {
        state.p = region2::p_hs(h, s);
        // above 50 MPa, where there is no region 5, the isotherm 1073.15 K is a limit
        surely_inside = state.p > p_min * (1 + p_error) && state.p < p_max * (1 - p_error) &&
                        (state.p < p_max_5 || below_t25(state.p, h + h_error));
    } else {
        state.p = region3::p_hs(h, s);
        surely_inside = state.p < p_max * (1 - p_error);
    }
    if (!surely_inside && solve_hs(h, s).region == Region::none) {
        return outside;
    }
    state.p = region == Region::wet ? psat(state.t) : std::clamp(state.p, p_min, p_max);
    return state;
}

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
