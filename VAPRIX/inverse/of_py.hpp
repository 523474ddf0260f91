// SPDX-License-Identifier: MIT
//
// States of (p, h) and (p, s), written once: y stands for the second variable.
// Given:    p  pressure, MPa, 0.0006112127 to 100;  h  specific enthalpy, kJ/kg,
//           -0.04158782623017032 to 7376.98028, or s  specific entropy, kJ/(kg K),
//           -0.008582287092621963 to 13.9049560904359.
// Refused:  a state that (p, T) does not reach and that is not wet steam, -10055.
// Notes:    the B-family answers by the backward equations, the O-family by the state that
//           reproduces both given variables through the basic equations to rounding. Wet steam
//           mixes the saturated states at Ts(p).
// Source:   IAPWS R7-97(2012), Eqs. (11), (13) and (20) to (27); IAPWS SR3-03(2014) for region 3.
#pragma once

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "frame/newton.hpp"
#include "inverse/beside_line.hpp"
#include "inverse/region_py.hpp"
#include "pt/of_pt.hpp"
#include "regions/region3_density.hpp"

namespace vaprix::inverse {

// Temperature, K, by the backward equation of a single phase. One that misses the end of its region
// by up to its own tolerance of 25 mK, that of region 5 by a rounding, is put on the end; a
// temperature on the wrong side of the saturation line stays as it is.
inline constexpr double backward_tolerance = 0.025;
inline constexpr double t_25_widened = 1073.175;
template <class Y>
[[nodiscard]] double t_backward(Region region, double p, double y) noexcept {
    if (region == Region::one) {
        const double t = Y::t1(p, y);
        return t >= T_min - backward_tolerance ? std::max(t, T_min) : t;
    }
    if (region == Region::two) {
        const double t = Y::t2(p, y);
        return t > T_25 && t <= t_25_widened ? T_25 : t;
    }
    return region == Region::three ? Y::t3(p, y) : onto_limit(Y::t5(p, y), T_25, T_max);
}

// State in a region that has been settled. The density of region 3 comes from the backward equation
// v(p, y) where it is asked for, else from the volume at the backward temperature.
template <class Y, Asked asked>
[[nodiscard]] VAPRIX_INLINE State in_region_py_b(Region region, double p, double y) noexcept {
    if (region == Region::wet) {
        if constexpr (asked.t || asked.wet) return wet_state_by<asked, Y::y>(p, tsat(p), y);
    }
    if constexpr (asked.density) {
        if (region == Region::three) {
            const double v = Y::v3(p, y);
            return {.region = region, .p = p, .d = 1 / v, .v = v};
        }
    }
    if constexpr (asked.t || asked.single || asked.density) {
        return in_region_b<asked>(region, p, t_backward<Y>(region, p, y));
    }
    return {.region = region, .p = p};
}

template <class Y, Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_py_b(double p, double y) noexcept {
    const Region region = region_b<Y>(p, y);
    return region == Region::none ? outside : in_region_py_b<Y, asked>(region, p, y);
}

// The region is the number given, unchecked; 0 is determined and written back. Refused, without a
// code: a number that is no region's.
template <class Y, Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_py_given(double p, double y, int& number) noexcept {
    if (number == 0) number = static_cast<int>(region_b<Y>(p, y));
    const auto region = static_cast<Region>(number);
    const bool known = (number >= 1 && number <= 3) || number == 5 || region == Region::wet;
    return known ? in_region_py_b<Y, asked>(region, p, y) : refused(no_code);
}

// Temperature, K, of region 1, 2 or 5, 0 if it does not settle: Newton's method along the isobar from
// the backward temperature, in region 5 from a fit, which needs two evaluations. After relative steps
// of less than `step` the error, of second order in them, is one of rounding.
inline constexpr double gibbs_step = 3e-8;
inline constexpr double gibbs_step_5 = 3e-7;  // whose isobars are straighter
inline constexpr double dense_step = 1e-9;    // of region 3, likewise
template <class Y, class Equation>
[[nodiscard]] double search_gibbs(double p, double y, double along) noexcept {
    constexpr Region region = region_of<Equation>;
    const double start = region == Region::one   ? Y::t1(p, y)
                         : region == Region::two ? Y::t2(p, y)
                                                 : Y::t5_start(p, along);
    const auto [t, converged] =
        newton_secant([p](double at) noexcept { return Y::template tangent<Equation>(p, at); },
                      [p](double at) noexcept { return Y::template value<Equation>(p, at); }, along,
                      start, region == Region::five ? gibbs_step_5 : gibbs_step);
    return converged ? t : 0;
}

// Of region 1 and 2 by their patches, which need one evaluation: their slope is so close that after a
// step of less than `last_patch_step` the error is one of rounding. Where the step is larger, it is not
// settled.
template <class Number>
struct Corrected {
    Number t;
    machine::Truth<Number> settled;
};
template <class Y, class Equation, class Number>
[[nodiscard]] VAPRIX_INLINE Corrected<Number> correct_patch(Number p, Number along) noexcept {
    using machine::fabs;
    const Tangent<Number> patch =
        evaluate_patch<Y::template t_patches<region_of<Equation>>>(p, along);
    const Number step = (along - Y::template value<Equation>(p, patch.y)) * patch.y_x;
    return {patch.y + step, fabs(step) < tables::last_patch_step};
}

template <class Y, class Equation>
[[nodiscard]] VAPRIX_INLINE double solve_gibbs(double p, double y, double low,
                                               double high) noexcept {
    const double along = along_isobar<Y, Equation>(p, y);
    if constexpr (region_of<Equation> != Region::five) {
        const auto [t, settled] = correct_patch<Y, Equation>(p, along);
        if (settled) return onto_limit(t, low, high);
    }
    return onto_limit(search_gibbs<Y, Equation>(p, y, along), low, high);
}

// Density and temperature of region 3: one step of Newton's method from the patches, so close that the
// error is one of rounding where the step is less than `dense_patch_step`.
template <class Number>
struct CorrectedPoint {
    Point<Number> at;
    machine::Truth<Number> settled;
};
template <class Y, class Number>
[[nodiscard]] VAPRIX_INLINE CorrectedPoint<Number> correct_dense_patch(Number p,
                                                                       Number y) noexcept {
    using machine::fabs;
    constexpr double close = tables::dense_patch_step;
    constexpr const Patches *d_patches = Y::d3_patches,
                            *t_patches = Y::template t_patches<Region::three>;
    static_assert(d_patches->blocks == t_patches->blocks);
    const PatchPlace<Number> place = patch_place<t_patches>(p, y);
    const Number d = evaluate_patch<d_patches>(place).y;
    const Number t = evaluate_patch<t_patches>(place).y;
    const TangentPair<Number> f = Y::template Backward<Number>::tangents3(d, t);
    const Point<Number> step = newton_step(f, p - f.a, y - f.b);
    const machine::Truth<Number> d_settled = fabs(step.x) < close * d;
    const machine::Truth<Number> t_settled = fabs(step.y) < close * t;
    const machine::Truth<Number> settled = d_settled & t_settled;
    return {{d + step.x, t + step.y}, settled};
}

// Else Newton's method from the backward equations. Along an isobar the pair (p, y) stays regular
// through the critical point, so it converges quadratically everywhere.
template <class Y>
[[nodiscard]] NewtonPoint<double> search_dense(double p, double y) noexcept {
    const auto tangents = [](double d, double t) noexcept { return Y::tangents3(d, t); };
    return newton(tangents, p, y, {1 / Y::v3(p, y), Y::t3(p, y)}, dense_step);
}
template <class Y>
[[nodiscard]] NewtonPoint<double> solve_dense(double p, double y) noexcept {
    const auto [at, settled] = correct_dense_patch<Y>(p, y);
    return settled ? NewtonPoint<double>{at, true} : search_dense<Y>(p, y);
}

// State of a single phase, whatever the saturation line says.
template <class Y>
[[nodiscard]] VAPRIX_INLINE State solve_single(Region region, double p, double y) noexcept {
    if (region == Region::three) {
        const auto [at, converged] = solve_dense<Y>(p, y);
        return converged ? dense_state(p, at.y, at.x) : outside;
    }
    const double t = region == Region::one   ? solve_gibbs<Y, region1>(p, y, T_min, T_13)
                     : region == Region::two ? solve_gibbs<Y, region2>(p, y, T_min, T_25)
                                             : solve_gibbs<Y, region5>(p, y, T_25, T_max);
    return t > 0 ? gibbs_state(region, p, t) : outside;
}

// The temperature beside the saturation line on the side that the region determination chose.
template <class Y>
[[nodiscard]] double t_beside_line(double p, double y) noexcept {
    return tsat_exact(p) + (Y::is_3a(p, y) ? -apart : apart);
}

// Whether a temperature is on its side of the line, so far that the exact line is not worth its cost.
template <class Y, class Number>
[[nodiscard]] VAPRIX_INLINE machine::Truth<Number> is_well_on_side(Number p, Number y,
                                                                   Number t) noexcept {
    constexpr double close = 1e-6;  // K
    const auto is_liquid = Y::template Backward<Number>::is_3a(p, y);
    return machine::select(is_liquid, Number(-1), Number(1)) * (t - tsat(p)) > close;
}

// Whether a solution is on its side of the line, as none and those of other regions are.
template <class Y>
[[nodiscard]] VAPRIX_INLINE bool is_on_side(const State& solved, double y) noexcept {
    const double p = solved.p;
    if (solved.region != Region::three || side_is_free(p)) return true;
    if (is_well_on_side<Y>(p, y, solved.t)) return true;
    const double side = Y::is_3a(p, y) ? -1 : 1;
    return side * (solved.t - t_beside_line<Y>(p, y)) >= 0;
}

// State beside the line where no single phase on its side has p and y: the mixture of the two phases
// that has y. Beyond the ends of the tie line, where the two lines differ, there is none: the single
// phase that has y misses p by their difference.
template <class Y, Asked asked>
[[nodiscard]] State beside_line(double p, double y) noexcept {
    const double t = t_beside_line<Y>(p, y);
    if constexpr (!asked.single && !asked.density && !asked.wet) {
        return {.region = Region::three, .p = p, .t = t};
    }
    constexpr Asked ends{.wet = true};
    const State mixture = wet_state_by<ends, Y::y>(p, t, y);
    if (mixture.x >= 0 && mixture.x <= 1) return mixture;

    constexpr double around = 0.1;  // relative, of the saturated density
    const State end = mixture.x < 0 ? liquid_end(mixture) : vapour_end(mixture);
    const double saturated = 1 / single<property::v>(end);
    const auto isotherm = [t](double d) noexcept {
        const TangentPair at = Y::tangents3(d, t);
        return Tangent{at.b, at.b_x};
    };
    const NewtonRoot<double> d = bracketed_newton(isotherm, y, (1 - around) * saturated,
                                                  (1 + around) * saturated, saturated, dense_step);
    return dense_state(p, t, d.x);
}

template <class Y, Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_py_o(double p, double y) noexcept {
    const Region region = region_o<Y>(p, y);
    if (region == Region::none) return outside;
    if (region == Region::wet) return wet_state_by<asked, Y::y>(p, tsat_exact(p), y);
    const State solved = solve_single<Y>(region, p, y);
    return is_on_side<Y>(solved, y) ? solved : beside_line<Y, asked>(p, y);
}

// Region by the B form, where the O form agrees with it: a state on which the two differ, in the
// narrow band between the two phase tests, is refused rather than mixed. A single phase kept beside
// the line has p, not y.
template <class Y, Asked asked>
[[nodiscard]] State agreed_of_py_o(double p, double y) noexcept {
    const Region region = region_b<Y>(p, y);
    if (region == Region::none) return outside;
    const bool dense =
        p > psat_13 && p < p_crit && (region == Region::wet || region == Region::three);
    if (dense && (region == Region::wet) != Y::is_wet_o(p, y)) return refused(no_code);
    if (region == Region::wet) return wet_state_by<asked, Y::y>(p, tsat_exact(p), y);
    if constexpr (!asked.single) return {.region = region, .p = p};
    const State solved = solve_single<Y>(region, p, y);
    if (is_on_side<Y>(solved, y)) return solved;
    const double t = t_beside_line<Y>(p, y);
    return dense_state(p, t, region3_density::density_beside(p, t, solved.d));
}

}  // namespace vaprix::inverse
