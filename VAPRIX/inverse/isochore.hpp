// SPDX-License-Identifier: MIT
//
// State of (v, h) and (v, s), wet steam included. Along an isochore h and s rise with the
// temperature, through every region that it passes (in cold liquid twice through the saturation
// line), so that one temperature carries the pair.
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/bracketed_newton.hpp"
#include "frame/chandrupatla.hpp"
#include "frame/error_code.hpp"
#include "frame/newton.hpp"
#include "inverse/second_variable.hpp"
#include "inverse/td.hpp"
#include "inverse/tv.hpp"
#include "inverse/volume_limits.hpp"
#include "pt/region_pt.hpp"

namespace vaprix::inverse {

struct IsochoreState {
    int region;  // 1, 2, 3, 5, pt::saturation_line for wet steam, or pt::outside
    double t;    // K
    double p;    // MPa
};
inline constexpr IsochoreState no_state{pt::outside, failed, failed};

[[nodiscard]] inline bool found(const IsochoreState& state) noexcept {
    return state.region != pt::outside;
}
[[nodiscard]] inline IsochoreState state_at(int region, double t, double v) noexcept {
    return region == pt::outside ? no_state
                                 : IsochoreState{region, t, tv::pressure_in(region, t, v)};
}

// Volumes, m3/kg, that part the regions.
inline constexpr double region1_end = 1.3e-3;       // v1(100 MPa, 623.15 K) >= 0.0013
inline constexpr double hot_liquid_end = 1.741e-3;  // v1(ps, 623.15 K) <= 0.001741
inline constexpr double region5_end = 9e-3;  // v5(50 MPa, 1073.15 K) >= 0.009, v of region 3 less

// What rounding may make of y, worst at the dense end of region 3.
template <class Y>
[[nodiscard]] double rounding_of(double y) noexcept {
    return 5e-13 * (std::fabs(y) + Y::unit);
}

// h or s at the temperature t, K, by the equation of the region; the mixture's in wet steam.
template <class Y>
[[nodiscard]] double along_isochore(int region, double t, double v) noexcept {
    if (region != pt::saturation_line) return td::evaluate_in<Y::y>(region, t, 1 / v);
    const pt::SaturatedState saturated(psat(t), t);
    return saturated.mixture<Y::y>(saturated.quality<pt::v>(v));
}

// A solution that misses an end of its range by no more than rounding is put on the end.
[[nodiscard]] inline double on_end(double x, double low, double high) noexcept {
    constexpr double rounding = 1e-11;  // relative, of the pressure of dense fluid
    if (x < low && x > low * (1 - rounding)) return low;
    if (x > high && x < high * (1 + rounding)) return high;
    return x;
}

// State in region 1, 2 or 5 by Newton's method on (p, T); no_state where it does not converge to a
// state of the region.
template <class Y, int region>
[[nodiscard]] IsochoreState solve_gibbs(double v, double y, Point<double> start) noexcept {
    constexpr double step = 1e-8;  // relative, after which the error is one of rounding
    static constexpr Box<double> around{{1e-4, 250}, {2 * p_max, region == 1 ? 640 : 1.1 * T_max}};
    const auto tangents = [](double p, double t) noexcept -> TangentPair<double> {
        const auto pair = [=](Tangent<double> volume, double v_t, Tangent<double> isobar,
                              double shift) noexcept {
            return TangentPair{
                volume.y,  volume.y_x, v_t, isobar.y - shift, Y::slope_by_p(t, volume.y, v_t),
                isobar.y_x};
        };
        const auto shift = [p]() noexcept { return Y::along_isobar(p, 0); };
        if constexpr (region == 1) {
            return pair(region1::v_tangent_p(p, t), region1::v_t(p, t), Y::tangent1(p, t), 0);
        } else if constexpr (region == 2) {
            return pair(region2::v_tangent_p(p, t), region2::v_t(p, t), Y::tangent2(p, t), shift());
        } else {
            return pair(region5::v_tangent_p(p, t), region5::v_t(p, t), Y::tangent5(p, t), shift());
        }
    };
    const auto [at, converged] = newton(tangents, v, y, start, step, &around);
    const double t = on_end(at.y, region == 5 ? T_25 : T_min,
                            region == 1   ? T_13
                            : region == 2 ? T_25
                                          : T_max);
    const double p = on_end(at.x, p_min, region == 5 ? p_max_5 : p_max);
    return converged && pt::region_pt(p, t) == region ? IsochoreState{region, t, p} : no_state;
}

// State in region 3 by Newton's method on T, held between its ends.
template <class Y>
[[nodiscard]] IsochoreState solve_dense(double v, double y, double start) noexcept {
    constexpr double step = 1e-8;  // relative, as above
    const double d = 1 / v;
    const auto tangent = [=](double t) noexcept {
        const TangentPair at = Y::tangents3(d, t);
        return Tangent{at.b, at.b_y};
    };
    const auto [t, converged] = bracketed_newton(tangent, y, T_13_dense, T_23_max,
                                                 std::clamp(start, T_13_dense, T_23_max), step);
    if (!converged) return no_state;
    const bool at_end = t <= T_13_dense || t >= T_23_max;
    if (at_end && !(std::fabs(Y::y.region3(d, t) - y) <= rounding_of<Y>(y))) {
        return no_state;
    }
    const double lowest = p_b23(t);
    const double p = on_end(region3::p(d, t), lowest, p_max);
    if (!(p >= lowest && p <= p_max)) return no_state;
    if (t < T_crit) {
        const SaturatedDensities saturated = dsat3(t, psat(t));
        if (d < saturated.liquid && d > saturated.vapour) return no_state;
    }
    return {3, t, p};
}

// The whole isochore searched for y. Where the equations of two regions leave a gap between their
// values of y at the boundary, the boundary answers for it; where they overlap, either region.
template <class Y>
[[nodiscard]] IsochoreState search_isochore(double v, double y) noexcept {
    constexpr double beyond = 1e9;     // residual of a temperature at which v is out of range
    constexpr double spacing = 4e-16;  // relative, of temperatures told apart
    constexpr double any_dense = 1;    // m3/kg: v out of range below it is too small, else large

    const auto residual = [=](double t) noexcept {
        const int region = tv::region(t, v);
        if (region == pt::outside) return v < any_dense ? beyond : -beyond;
        return along_isochore<Y>(region, t, v) - y;
    };
    const auto state = [=](double t) noexcept { return state_at(tv::region(t, v), t, v); };
    const double allowed = rounding_of<Y>(y);

    const double highest = v < region1_end ? T_13 : v < region5_end ? T_25 : T_max;
    const Residual low{T_min, residual(T_min)};
    if (low.f >= 0) return low.f <= allowed ? state(low.x) : no_state;
    const Residual high{highest, residual(highest)};
    if (high.f <= 0) return high.f >= -allowed ? state(high.x) : no_state;

    const Residual root = chandrupatla(residual, low, high, spacing);
    if (std::fabs(root.f) <= allowed) return state(root.x);

    // A jump, or an end of the range beside a corner, where the equations of the two regions that
    // meet do not end at the same volume: the state may be on the other one's ground.
    const double t = root.x;
    if (v < region5_end) {
        if (const auto dense = solve_dense<Y>(v, y, t); found(dense)) return dense;
        if (const auto liquid = solve_gibbs<Y, 1>(v, y, {p_max, t}); found(liquid)) return liquid;
    }
    const double p = std::clamp(R / 1000 * t / v, p_min, p_max);
    if (const auto vapour = solve_gibbs<Y, 2>(v, y, {p, t}); found(vapour)) return vapour;
    constexpr double neighbour = 1e-9;  // relative, beyond what tv::region rounds to a limit
    const bool within = tv::region(t * (1 - neighbour), v) != pt::outside &&
                        tv::region(t * (1 + neighbour), v) != pt::outside;
    return within ? state(t) : no_state;
}

// Wet steam up to 623.15 K; no_state where there is none.
template <class Y>
[[nodiscard]] IsochoreState solve_wet(double v, double y) noexcept {
    constexpr double spacing = 4e-16;  // relative, of temperatures told apart
    const auto residual = [=](double t) noexcept {
        return along_isochore<Y>(pt::saturation_line, t, v) - y;
    };
    const Residual low{T_min, residual(T_min)};
    const Residual high{T_13, residual(T_13)};
    if (!(low.f < 0 && high.f > 0)) return no_state;
    const double t = chandrupatla(residual, low, high, spacing).x;
    return tv::region(t, v) == pt::saturation_line ? IsochoreState{pt::saturation_line, t, psat(t)}
                                                   : no_state;
}

// The state by the region that it is likely in, without a search; no_state where the guess fails. As
// the isochore has one state for y, a state that is found is the one.
template <class Y>
[[nodiscard]] IsochoreState guess_on_isochore(double v, double y) noexcept {
    const auto ideal = [v](double t) noexcept { return Point{R / 1000 * t / v, t}; };
    // the backward equation at the pressure of an ideal gas of middling temperature
    const auto backward = [=](double t) noexcept {
        const double p = std::clamp(ideal(t).x, p_min, p_max);
        return ideal(std::clamp(Y::t2(p, y), T_min, T_25));
    };
    if (v >= region5_end) {
        if (y >= Y::wet_below) {
            const bool hot = Y::along_isobar(ideal(T_25).x, y) > Y::hot_above;
            const auto vapour =
                hot ? solve_gibbs<Y, 5>(v, y, ideal(1500)) : solve_gibbs<Y, 2>(v, y, backward(600));
            if (found(vapour)) return vapour;
        }
        return solve_wet<Y>(v, y);
    }
    if (v > region1_end && y > Y::dense_above) {
        if (y < Y::thin_above) {
            if (const auto dense = solve_dense<Y>(v, y, 700); found(dense)) return dense;
        }
        if (const auto vapour = solve_gibbs<Y, 2>(v, y, ideal(900)); found(vapour)) return vapour;
    }
    if (v < hot_liquid_end) {
        constexpr double p = 20;
        const auto liquid = solve_gibbs<Y, 1>(v, y, {p, std::clamp(Y::t1(p, y), T_min, T_13)});
        if (found(liquid)) return liquid;
    }
    return solve_wet<Y>(v, y);
}

// Given:    v  specific volume, m3/kg;  y  h, kJ/kg, or s, kJ/(kg K).
// Returned: the state, or no_state outside the range and for a NaN.
template <class Y>
[[nodiscard]] IsochoreState state_on_isochore(double v, double y) noexcept {
    if (!(v > smallest && v < largest && std::fabs(y) < 2 * Y::highest)) return no_state;
    const IsochoreState guessed = guess_on_isochore<Y>(v, y);
    return found(guessed) ? guessed : search_isochore<Y>(v, y);
}

template <class Y>
[[nodiscard]] double region_reported_on_isochore(double v, double y) noexcept {
    return pt::reported(state_on_isochore<Y>(v, y).region);
}

// Temperature, K, of (1/v, y), with code -10055.
template <class Y>
[[nodiscard]] double t_of_density(double d, double y) noexcept {
    return or_fail(is_density(d) ? state_on_isochore<Y>(1 / d, y).t : failed,
                   ErrorCode::outside_range);
}

}  // namespace vaprix::inverse
