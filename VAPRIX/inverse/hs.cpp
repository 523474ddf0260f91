// SPDX-License-Identifier: MIT
#include "inverse/hs.hpp"

#include <algorithm>

#include "frame/error_code.hpp"
#include "inverse/b_by_pressure.hpp"
#include "inverse/hs_exact.hpp"
#include "inverse/region_hs.hpp"

namespace vaprix::hs {
namespace {

// How far the backward equations may be from the basic ones, with a margin: closer to a limit than
// this it takes the exact state to tell on which side of it the given one is.
constexpr double p1_error = 0.02;         // MPa
constexpr double p_error = 2e-4;          // relative, regions 2 and 3
constexpr double t_error = 0.05;          // K
constexpr double h_error = 0.1;           // kJ/kg, on the isotherm 1073.15 K
constexpr double s_warm_liquid = 0.0015;  // from here region 1 is warmer than 273.15 K + t_error

constexpr State nothing{pt::outside, 0, 0, 0};

// B-family state of (h, s), on the limits of pressure if it is beyond them by the error of the
// backward equation. Regions 1, 2 and 3 leave t at 0, for whom needs it.
State resolve_b(double h, double s) noexcept {
    const int region = region_unlimited(h, s);
    State state{region, 0, 0, 0};
    bool surely_inside = false;
    switch (region) {
        case 1:
            state.p = region1::p_hs(h, s);
            surely_inside = state.p < p_max - p1_error && s > s_warm_liquid;
            break;
        case 2:
            state.p = region2::p_hs(h, s);
            // above 50 MPa, where there is no region 5, the isotherm 1073.15 K is a limit
            surely_inside = state.p > p_min * (1 + p_error) && state.p < p_max * (1 - p_error) &&
                            (state.p < p_max_5 || below_t25(state.p, h + h_error));
            break;
        case 3:
            state.p = region3::p_hs(h, s);
            surely_inside = state.p < p_max * (1 - p_error);
            break;
        case two_phase:
            if (s < boundaries_hs::s_vapour_13) return solve(h, s);
            state.t = std::clamp(tsat_hs(h, s), T_min, T_13);
            surely_inside = state.t > T_min + t_error;
            break;
        case 5: return solve(h, s);
        default: return nothing;
    }
    if (!surely_inside && solve(h, s).region == pt::outside) return nothing;
    state.p = region == two_phase ? psat(state.t) : std::clamp(state.p, p_min, p_max);
    return state;
}

double temperature_b(const State& state, double h) noexcept {
    if (state.t > 0) return state.t;
    return inverse::temperature_in<inverse::Enthalpy>(state.region, state.p, h);
}

}  // namespace

double region_reported(double h, double s) noexcept { return pt::reported(resolve_b(h, s).region); }

double p_b(double h, double s) noexcept {
    const State state = resolve_b(h, s);
    return state.region == pt::outside ? failed : state.p;
}

double t_b(double h, double s) noexcept {
    const State state = resolve_b(h, s);
    return state.region == pt::outside ? failed : temperature_b(state, h);
}

// The density of region 3 comes from the backward equation v(p, s), not by way of the temperature.
double d_b(double h, double s) noexcept {
    State state = resolve_b(h, s);
    if (state.region == pt::outside) return failed;
    if (state.region == 3) return state.d > 0 ? state.d : 1 / region3::v_ps(state.p, s);
    state.t = temperature_b(state, h);
    return 1 / volume(state, h);
}

double p_o(double h, double s) noexcept {
    const State state = solve(h, s);
    return state.region == pt::outside ? fail(ErrorCode::outside_range) : state.p;
}

double t_o(double h, double s) noexcept {
    const State state = solve(h, s);
    return state.region == pt::outside ? fail(ErrorCode::outside_range) : state.t;
}

double v_o(double h, double s) noexcept {
    const State state = solve(h, s);
    return state.region == pt::outside ? fail(ErrorCode::outside_range) : volume(state, h);
}

double d_o(double h, double s) noexcept {
    const State state = solve(h, s);
    if (state.region == pt::outside) return fail(ErrorCode::outside_range);
    return state.region == 3 ? state.d : 1 / volume(state, h);
}

}  // namespace vaprix::hs
