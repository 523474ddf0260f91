// SPDX-License-Identifier: MIT
//
// (T, h) and (T, s), written once: y stands for the second variable. Along an isotherm y falls with
// rising pressure in vapour, in wet steam and in region 3. In the liquid of region 1 it may turn:
// the enthalpy of hot liquid has a minimum, the entropy of cold liquid a maximum. So a pair has up
// to three states; the one of lowest pressure and the next are offered.
//
// Y names the property y and its rounding, by which a y may miss that of an end and still is on it;
// the tangents of y in p, in region 3 in density; how the vapour is solved, where and how the liquid
// turns.
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/bracketed_newton.hpp"
#include "frame/constants.hpp"
#include "inverse/isotherm_state.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::inverse {

// Relative steps in p and in density after which the error, of second order in them, is one of
// rounding.
inline constexpr double step_p = 1e-7;
inline constexpr double step_d = 1e-8;

inline constexpr IsothermState nowhere{};

[[nodiscard]] inline IsothermState wet(double ps, double y, double y_liquid,
                                       double y_vapour) noexcept {
    return {pt::saturation_line, ps, 0, (y - y_liquid) / (y_vapour - y_liquid)};
}

// Vapour of region 2 or 5 up to the pressure p_highest, at which y is y_highest or more.
template <class Y>
[[nodiscard]] IsothermState vapour(int region, double t, double y, double p_highest,
                                   double y_highest) noexcept {
    if (y <= y_highest) {
        return y >= y_highest - Y::rounding ? IsothermState{region, p_highest} : nowhere;
    }
    const double y_lowest = region == 2 ? Y::y.region2(p_min, t) : Y::y.region5(p_min, t);
    if (y >= y_lowest) {
        return y <= y_lowest + Y::rounding ? IsothermState{region, p_min} : nowhere;
    }
    const auto tangent = region == 2 ? Y::tangent2 : Y::tangent5;
    return {region, Y::vapour_pressure(tangent, t, y, y_lowest, p_highest, y_highest)};
}

// Liquid of region 1 above the saturation pressure ps, where y is y_saturated. The isotherm has two
// legs, up to the pressure where y turns and on from there; either may be empty. The state on the
// leg that comes first, or with `second` the one on the other leg.
template <class Y>
[[nodiscard]] IsothermState liquid(double t, double y, double ps, double y_saturated,
                                   bool second) noexcept {
    const double p_turn = Y::may_turn(t) ? Y::turning_pressure(t, ps) : ps;
    const bool turns = p_turn > ps && p_turn < p_max;
    const double y_turn = Y::y.region1(p_turn, t);

    // distance from the turn, which grows along both legs
    const auto beyond = [](double from, double to) noexcept { return Y::turn * (to - from); };
    const double distance = beyond(y_turn, y);
    if (distance <= 0) {
        return distance >= -Y::rounding && !second ? IsothermState{1, p_turn} : nowhere;
    }

    const auto on_leg = [=](double p_end, double distance_of_end) noexcept -> IsothermState {
        if (distance >= distance_of_end) return {1, p_end};
        const double share = distance / distance_of_end;
        const double start = p_turn + (p_end - p_turn) * (turns ? std::sqrt(share) : share);
        const auto [low, high] = std::minmax(p_turn, p_end);
        const auto tangent = [t](double p) noexcept { return Y::tangent1(p, t); };
        return {1, bracketed_newton(tangent, y, low, high, start, step_p).x};
    };
    const double distance_saturated = beyond(y_turn, y_saturated);
    const bool on_first = p_turn > ps && distance <= distance_saturated;
    if (on_first && !second) return on_leg(ps, distance_saturated);
    if (on_first != second) return nowhere;
    const double distance_highest = beyond(y_turn, Y::y.region1(p_max, t));
    return distance <= distance_highest + Y::rounding ? on_leg(p_max, distance_highest) : nowhere;
}

// Up to 623.15 K.
template <class Y>
[[nodiscard]] IsothermState below_t13(double t, double y) noexcept {
    const double ps = psat(t);
    const double y_vapour = Y::y.region2(ps, t);
    if (y >= y_vapour) return vapour<Y>(2, t, y, ps, y_vapour);
    const double y_liquid = Y::y.region1(ps, t);
    if (y > y_liquid) return wet(ps, y, y_liquid, y_vapour);
    return liquid<Y>(t, y, ps, y_liquid, false);
}

// State of region 3 between two densities, y falling from one to the other.
template <class Y>
[[nodiscard]] IsothermState dense(double t, double y, double d_low, double y_low, double d_high,
                                  double y_high) noexcept {
    constexpr double gap = 0.99;        // to the equation of region 2, at most 0.02 %
    constexpr double rounding = 2e-10;  // relative, of the pressure of a density that has y
    const double share = y_low > y_high ? (y_low - y) / (y_low - y_high) : 1;
    const double start = d_low + (d_high - d_low) * std::clamp(share, 0.0, 1.0);
    const double d = bracketed_newton([t](double at) noexcept { return Y::tangent3(at, t); }, y,
                                      gap * d_low, d_high, start, step_d)
                         .x;
    const double p = region3::p(d, t);
    return p <= p_max * (1 + rounding) ? IsothermState{3, std::min(p, p_max), d} : nowhere;
}

// 623.15 to 863.15 K. Below the critical temperature a state of region 3 is kept on its side of the
// saturation line, which differs from that of the region-3 equation by up to 0.003 % of p.
template <class Y>
[[nodiscard]] IsothermState below_t23(double t, double y) noexcept {
    // A density that no state of region 3 reaches: beyond 100 MPa, before y turns.
    const double d_highest = 770 - 0.45 * (t - T_13);
    constexpr double apart = 1e-12;  // relative distance in p that is kept from the line

    const double p_b = std::min(p_b23(t), p_max);  // 100 MPa is reached a rounding below 863.15 K
    const double y_b = Y::y.region2(p_b, t);
    if (y >= y_b) return vapour<Y>(2, t, y, p_b, y_b);
    const double d_lowest = 1 / region2::v(p_b, t);
    const double y_highest = Y::y.region3(d_highest, t);
    if (t >= T_crit) return dense<Y>(t, y, d_lowest, y_b, d_highest, y_highest);

    const double ps = psat(t);
    const pt::SaturatedState saturated(ps, t);
    const double y_vapour = saturated.vapour<Y::y>();
    if (y >= y_vapour) {
        IsothermState found = dense<Y>(t, y, d_lowest, y_b, saturated.vapour_density(), y_vapour);
        found.p = std::min(found.p, ps * (1 - apart));
        return found;
    }
    const double y_liquid = saturated.liquid<Y::y>();
    if (y > y_liquid) return wet(ps, y, y_liquid, y_vapour);
    IsothermState found =
        dense<Y>(t, y, saturated.liquid_density(), y_liquid, d_highest, y_highest);
    found.p = std::max(found.p, ps * (1 + apart));
    return found;
}

// Beyond any state, kJ/kg and kJ/(kg K) alike.
inline constexpr double y_beyond = 1e4;

// The state of lowest pressure.
template <class Y>
[[nodiscard]] IsothermState lowest(double t, double y) noexcept {
    if (!(t >= T_min && t <= T_max && std::fabs(y) < y_beyond)) return nowhere;
    if (t <= T_13) return below_t13<Y>(t, y);
    if (t <= T_23_max) return below_t23<Y>(t, y);
    if (t <= T_25) return vapour<Y>(2, t, y, p_max, Y::y.region2(p_max, t));
    return vapour<Y>(5, t, y, p_max_5, Y::y.region5(p_max_5, t));
}

// The next one, which is liquid: wet steam or the other leg comes before it.
template <class Y>
[[nodiscard]] IsothermState next(double t, double y) noexcept {
    if (!(t >= T_min && t <= Y::t_turning && std::fabs(y) < y_beyond)) return nowhere;
    const double ps = psat(t);
    const double y_liquid = Y::y.region1(ps, t);
    return liquid<Y>(t, y, ps, y_liquid, y <= y_liquid);
}

}  // namespace vaprix::inverse
