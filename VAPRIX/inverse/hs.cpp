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

// State by the backward equations; t only where the region needed it, else 0.
State found(int region, double p, double t = 0) noexcept { return {region, p, t, 0}; }

constexpr State nothing{pt::outside, 0, 0, 0};

State limited(bool inside, bool certain, double h, double s, const State& state) noexcept {
    if (certain) return inside ? state : nothing;
    return solve(h, s).region != pt::outside ? state : nothing;
}

// Between the limits of pressure, on which a state beyond them is put; error is that of p.
State limited_in_p(int region, double p, double h, double s, double error, bool certain) noexcept {
    const bool inside = p > p_min && p < p_max;
    const bool below = p < p_max - error && p > p_min + std::min(error, p_min * p_error);
    const bool beyond = p > p_max + error || p < p_min - std::min(error, p_min * p_error);
    return limited(inside, beyond || (certain && below), h, s,
                   found(region, std::clamp(p, p_min, p_max)));
}

// B-family state of (h, s).
State resolve_b(double h, double s) noexcept {
    const int region = region_unlimited(h, s);
    switch (region) {
        case 1: {
            const double p = region1::p_hs(h, s);
            if (p > p_max + p1_error) return nothing;
            const State state = found(1, std::clamp(p, p_min, p_max));
            return limited(true, p < p_max - p1_error && s > s_warm_liquid, h, s, state);
        }
        case 2: {
            // above 50 MPa, where there is no region 5, the isotherm 1073.15 K is a limit
            const double p = region2::p_hs(h, s);
            const bool cold = p < p_max_5 || inverse::Enthalpy::below_t25(p, h + h_error);
            return limited_in_p(2, p, h, s, p * p_error, cold);
        }
        case 3: {
            const double p = region3::p_hs(h, s);
            return limited_in_p(3, p, h, s, p * p_error, true);
        }
        case two_phase: {
            if (s < boundaries_hs::s_vapour_13) break;
            const double t = std::min(tsat_hs(h, s), T_13);
            const State state = found(two_phase, 0, std::max(t, T_min));
            return limited(true, t > T_min + t_error, h, s, state);
        }
        default: break;
    }
    return region == pt::outside ? nothing : solve(h, s);
}

double temperature_b(const State& state, double h) noexcept {
    if (state.t > 0) return state.t;
    return inverse::temperature_in<inverse::Enthalpy>(state.region, state.p, h);
}

}  // namespace

double region_reported(double h, double s) noexcept {
    const int region = resolve_b(h, s).region;
    return region == two_phase ? 4.0 : region;
}

double p_b(double h, double s) noexcept {
    const State state = resolve_b(h, s);
    if (state.region == pt::outside) return failed;
    return state.p > 0 ? state.p : psat(state.t);
}

double t_b(double h, double s) noexcept {
    const State state = resolve_b(h, s);
    return state.region == pt::outside ? failed : temperature_b(state, h);
}

double d_b(double h, double s) noexcept {
    State state = resolve_b(h, s);
    switch (state.region) {
        case pt::outside: return failed;
        case 3: return state.d > 0 ? state.d : 1 / region3::v_ps(state.p, s);
        case two_phase: state.p = psat(state.t); break;
        default: state.t = temperature_b(state, h);
    }
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
