// SPDX-License-Identifier: MIT
//
// O-family of (p, h) and (p, s): the state that reproduces both given variables through the basic
// equations to rounding.
#pragma once

#include "frame/error_code.hpp"
#include "frame/newton.hpp"
#include "frame/pegasus.hpp"
#include "inverse/b_by_pressure.hpp"
#include "regions/region3_density.hpp"

namespace vaprix::inverse {

// Temperature of regions 1, 2 and 5: Newton's method, which needs two evaluations from the backward
// temperature and in region 5 from a fit. Should it not settle, the Pegasus method around the
// backward temperature; 0.0 if that does not either.
template <class Y>
[[nodiscard]] double temperature_gibbs(int region, double p, double y) noexcept {
    // Relative steps after which the error, of second order in them, is one of rounding: the
    // isobars of region 5 are straighter.
    constexpr double step = 3e-8;
    constexpr double step_5 = 3e-7;
    constexpr double width = 1e-12;  // relative
    const auto solve = [=](auto tangent, auto value, double target, double start, double tolerance,
                           pt::Property::Function y_of) noexcept {
        const NewtonRoot root =
            newton_secant([=](double t) noexcept { return tangent(p, t); },
                          [=](double t) noexcept { return value(p, t); }, target, start, tolerance);
        if (root.converged) return root.x;
        const double t = temperature_in<Y>(region, p, y);
        return pegasus([=](double x) noexcept { return y_of(p, x) - y; }, 1.01 * t, 0.99 * t,
                       width);
    };
    if (region == 1) {
        return solve(Y::tangent1, Y::y.region1, y, Y::t1(p, y), step, Y::y.region1);
    }
    const double target = Y::along_isobar(p, y);
    return region == 2
               ? solve(Y::tangent2, Y::value2, target, Y::t2(p, y), step, Y::y.region2)
               : solve(Y::tangent5, Y::value5, target, Y::t5_start(p, y), step_5, Y::y.region5);
}

struct DenseState {
    double d;  // kg/m3
    double t;  // K
};

// State of region 3: Newton's method on (density, T) from the backward equations. Along an isobar
// the pair (p, y) stays regular through the critical point, so it converges quadratically
// everywhere; a density and a temperature of 0.0 should it not.
//
// The state is kept on the side of the saturation line that the region determination chose. Within
// 5e-5 MPa of the critical pressure the line of Eq. (30) is not that of the region-3 equation:
// states of subregion 3a lie above its temperature, and what reproduces p and y is left where it
// is.
template <class Y>
[[nodiscard]] DenseState solve3(double p, double y) noexcept {
    constexpr double step = 1e-9;           // relative, after which the error is one of rounding
    constexpr double apart = 1e-12;         // distance that is kept from the line, K
    constexpr double close = 1e-6;          // distance at which the exact line is worth its cost, K
    constexpr double near_critical = 5e-5;  // MPa

    const NewtonPoint solved = newton(Y::tangents3, p, y, {1 / Y::v3(p, y), Y::t3(p, y)}, step);
    if (!solved.converged) return {0.0, 0.0};
    const auto [d, t] = solved.at;
    if (p > p_crit - near_critical) return {d, t};
    const double side = Y::is_3a(p, y) ? -1 : 1;
    if (side * (t - tsat(p)) > close) return {d, t};
    const double nearest = tsat_exact(p) + side * apart;
    if (side * (t - nearest) >= 0) return {d, t};
    return {region3_density::density_beside(p, nearest, d), nearest};
}

// Wet steam at the saturation temperature that reproduces p.
[[nodiscard]] inline pt::SaturatedState saturated_o(double p) noexcept {
    return {p, tsat_exact(p)};
}

template <class Y>
[[nodiscard]] double t_o(double p, double y) noexcept {
    const int region = region_o<Y>(p, y);
    switch (region) {
        case pt::outside: return fail(ErrorCode::outside_range);
        case 3: return solve3<Y>(p, y).t;
        case two_phase: return tsat_exact(p);
        default: return temperature_gibbs<Y>(region, p, y);
    }
}

// A property of the solved state; property.region3 takes the density that was solved with the
// temperature. mixed(saturated) is what wet steam answers.
template <class Y, const pt::Property& property, class Mixed>
[[nodiscard]] double evaluate_o(int region, double p, double y, Mixed mixed) noexcept {
    switch (region) {
        case pt::outside: return fail(ErrorCode::outside_range);
        case two_phase: return mixed(saturated_o(p));
        case 3: {
            const DenseState state = solve3<Y>(p, y);
            return state.d > 0 && state.t > 0 ? property.region3(state.d, state.t) : failed;
        }
        default: break;
    }
    const double t = temperature_gibbs<Y>(region, p, y);
    if (!(t > 0)) return failed;
    switch (region) {
        case 1: return property.region1(p, t);
        case 2: return property.region2(p, t);
        default: return property.region5(p, t);
    }
}

// A property that mixes linearly in the quality: volume, the other one of h and s.
template <class Y, const pt::Property& property>
[[nodiscard]] double mixed_o(double p, double y) noexcept {
    return evaluate_o<Y, property>(
        region_o<Y>(p, y), p, y, [y](const pt::SaturatedState& saturated) noexcept {
            return saturated.mixture<property>(saturated.quality<Y::y>(y));
        });
}

template <class Y>
[[nodiscard]] double d_o(double p, double y) noexcept {
    const double v = mixed_o<Y, pt::v>(p, y);
    return v > 0 ? 1 / v : failed;
}

template <class Y>
[[nodiscard]] double v_o(double p, double y) noexcept {
    const double d = d_o<Y>(p, y);
    return d > 0 ? 1 / d : failed;
}

// Region by the B form, where the O form agrees with it: a state on which the two differ, in the
// narrow band between the two phase tests, has no answer rather than a mixed one.
inline constexpr int disputed = -1;
template <class Y>
[[nodiscard]] int region_agreed(double p, double y) noexcept {
    const int region = region_but_phase<Y>(p, y);
    if (region != 3 || !(p < p_crit)) return region;
    const bool wet = is_wet_b<Y>(p, y);
    if (wet != Y::is_wet_o(p, y)) return disputed;
    return wet ? two_phase : 3;
}

// A property that wet steam does not have: at the ends of the tie line that of the saturated phase.
template <class Y, const pt::Property& property>
[[nodiscard]] double single_phase_o(double p, double y) noexcept {
    constexpr double end = 1e-6;  // of the tie line
    const int region = region_agreed<Y>(p, y);
    if (region == disputed) return failed;
    return evaluate_o<Y, property>(region, p, y, [y](const pt::SaturatedState& saturated) noexcept {
        const double x = saturated.quality<Y::y>(y);
        const double from_vapour = 1 - x;
        if (x >= 0 && x < end) return saturated.liquid<property>();
        if (from_vapour >= 0 && from_vapour < end) return saturated.vapour<property>();
        return failed;
    });
}

// Vapour quality; a single phase has none.
template <class Y>
[[nodiscard]] double x_o(double p, double y) noexcept {
    const int region = region_agreed<Y>(p, y);
    if (region == pt::outside) return fail(ErrorCode::outside_range);
    return region == two_phase ? saturated_o(p).quality<Y::y>(y) : failed;
}

}  // namespace vaprix::inverse
