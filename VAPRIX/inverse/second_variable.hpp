// SPDX-License-Identifier: MIT
//
// What h and s differ in as a given variable. Everything else about (p, h) and (p, s), (v, h) and
// (v, s), saturated states by h and by s is written once, over one of these: y stands for the given
// variable, h in kJ/kg or s in kJ/(kg K).
#pragma once

#include <type_traits>

#include "frame/constants.hpp"
#include "frame/elementary.hpp"
#include "frame/polynomial.hpp"
#include "inverse/tables/inverse_patches.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region5_backward.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/isobar_limits.hpp"
#include "regions/tables/region5_start.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {

inline constexpr auto t5_start_h = polynomial(tables::t5_start_h);
inline constexpr auto t5_start_s = polynomial(tables::t5_start_s);

// Backward equations of the two pairs by subregion, in region 3 also p and h or s with their slopes;
// whether a state of region 2 beyond 2a is of subregion 2c, else of 2b, and one of region 3 of 3a, else
// of 3b.
template <class Number>
struct BackwardOfPh {
    static constexpr auto t1 = Region1<Number>::t_ph;
    static constexpr auto t2a = Region2<Number>::t2a_ph;
    static constexpr auto t2b = Region2<Number>::t2b_ph;
    static constexpr auto t2c = Region2<Number>::t2c_ph;
    static constexpr auto is_2c = Region2<Number>::is_2c_ph;
    static constexpr auto t3a = Region3<Number>::t3a_ph;
    static constexpr auto t3b = Region3<Number>::t3b_ph;
    static constexpr auto v3a = Region3<Number>::v3a_ph;
    static constexpr auto v3b = Region3<Number>::v3b_ph;
    static constexpr auto tangents3 = Region3<Number>::ph_tangents;
    static constexpr auto is_3a = Region3<Number>::is_3a_ph;
    static constexpr auto p3sat = Region3<Number>::p3sat_h;
    static constexpr auto t5 = Region5<Number>::t_ph;
};
template <class Number>
struct BackwardOfPs {
    static constexpr auto t1 = Region1<Number>::t_ps;
    static constexpr auto t2a = Region2<Number>::t2a_ps;
    static constexpr auto t2b = Region2<Number>::t2b_ps;
    static constexpr auto t2c = Region2<Number>::t2c_ps;
    static constexpr auto is_2c = Region2<Number>::is_2c_ps;
    static constexpr auto t3a = Region3<Number>::t3a_ps;
    static constexpr auto t3b = Region3<Number>::t3b_ps;
    static constexpr auto v3a = Region3<Number>::v3a_ps;
    static constexpr auto v3b = Region3<Number>::v3b_ps;
    static constexpr auto tangents3 = Region3<Number>::ps_tangents;
    static constexpr auto is_3a = Region3<Number>::is_3a_ps;
    static constexpr auto p3sat = Region3<Number>::p3sat_s;
    static constexpr auto t5 = Region5<Number>::t_ps;
};

struct Enthalpy : BackwardOfPh<double> {
    template <class Number>
    using Backward = BackwardOfPh<Number>;
    static constexpr auto t2 = region2::t_ph;
    static constexpr auto t3 = region3::t_ph;
    static constexpr auto v3 = region3::v_ph;

    static constexpr const auto& y = property::h;
    static constexpr double unit = R * T_min;  // what a rounding near its zero is measured by

    // range of validity
    static constexpr double lowest = -0.04158782623017032;
    static constexpr double highest = 7376.98028;
    // vapour up to the saturation pressure at 623.15 K
    static constexpr double surely_region2 = 4080.0;            // up to here
    static constexpr double surely_region5 = 7365.80223401565;  // up to here, beyond region 2
    static constexpr double t_search_max = T_max;  // highest temperature that counts as region 5, K
    // above that pressure
    static constexpr double beyond_region1 = 2563.592003888252;  // from here: regions 2, 3 and 5
    static constexpr double dense_region5 = 4084.04905441735;    // beyond: region 5 at once
    static constexpr double dense_outside = 7380.0;

    // What the vapour's tangent and value below are of, at constant p.
    template <class Number>
    static Number along_isobar(Number /* p */, Number h) noexcept {
        return h;
    }

    static constexpr const auto& limits = tables::isobar_limits_h;

    // The temperature of region 1, 2 or 3 and the density of region 3 by y along the isobar.
    template <Region region>
    static constexpr const Patches* t_patches = region == Region::one   ? &tables::t1_of_ph
                                                : region == Region::two ? &tables::t2_of_ph
                                                                        : &tables::t3_of_ph;
    static constexpr const Patches* d3_patches = &tables::d3_of_ph;

    // Start value for the temperature of region 5, K, by y along the isobar.
    template <class Number>
    static Number t5_start(std::type_identity_t<Number> p, Number h) noexcept {
        return T_25 + evaluate<t5_start_h>((h - 4160) / 1000, p / p_max_5);
    }

    // Phase of a dense state below the critical pressure by the basic equation that the O-family
    // then evaluates, so that the two agree next to the critical point.
    template <class Number>
    static machine::Truth<Number> is_wet_o(Number p, Number h) noexcept {
        const StateOf<Number> ends = wet_state<Asked{.wet = true}>(p, tsat(p));
        const machine::Truth<Number> above_liquid = single<y>(liquid_end(ends)) < h;
        if (machine::none(above_liquid)) return above_liquid;
        const machine::Truth<Number> below_vapour = h < single<y>(vapour_end(ends));
        return above_liquid & below_vapour;
    }

    // What hardly depends on the volume in vapour.
    static double along_isochore(double /* v */, double h) noexcept { return h; }

    // Which region a search along an isochore tries first, at a volume where the other cannot be:
    // of wet steam and vapour at volumes beyond those of region 3; h2(Ts) >= 2500.89
    static bool is_wet(double h, double /* along */) noexcept { return h < 2500; }
    // of wet steam and region 3; the mixture at 623.15 K has 6.3 to 28.4 more
    static double wet_below_13(double v) noexcept { return 1450 + 123300 * v; }
    static constexpr double hot_above = 4160;    // of regions 2 and 5; h2(p, 1073.15 K) <= 4160.66
    static constexpr double dense_above = 1553;  // of regions 1 and 3; h1(p, 623.15 K) >= 1553.9
    static constexpr double thin_above = 2813;   // of regions 2 and 3; h2(p, TB23) <= 2812.95

    // (dh/dp)_T from the volume and its slope (dv/dT)_p, kJ/(kg MPa)
    static double slope_by_p(double t, double v, double v_t) noexcept {
        return 1000 * (v - t * v_t);
    }

    template <class Equation>
    static constexpr auto with_v = Equation::vh;
    template <class Equation>
    static constexpr auto tangents_with_v = Equation::vh_tangents;
    template <class Equation>
    static constexpr auto tangent = Equation::h_tangent_t;
    template <class Equation>
    static constexpr auto value = Equation::h;
};

struct Entropy : BackwardOfPs<double> {
    template <class Number>
    using Backward = BackwardOfPs<Number>;
    static constexpr auto t2 = region2::t_ps;
    static constexpr auto t3 = region3::t_ps;
    static constexpr auto v3 = region3::v_ps;

    static constexpr const auto& y = property::s;
    static constexpr double unit = R;

    static constexpr double lowest = -0.008582287092621963;
    static constexpr double highest = 13.9049560904359;
    static constexpr double surely_region2 = 7.15370696228142;
    static constexpr double surely_region5 = 8.66886626515754;
    static constexpr double t_search_max = 2273.2;  // 0.05 K beyond region 5, deliberately
    static constexpr double beyond_region1 = 3.778281339544279;
    static constexpr double dense_region5 = 7.15370696228142;
    static constexpr double dense_outside = 9.2;

    // Without its logarithm of p the entropy of vapour hardly depends on p.
    template <class Number>
    static Number along_isobar(Number p, Number s) noexcept {
        return s + R * log(p);
    }

    static constexpr const auto& limits = tables::isobar_limits_s;

    template <Region region>
    static constexpr const Patches* t_patches = region == Region::one   ? &tables::t1_of_ps
                                                : region == Region::two ? &tables::t2_of_ps
                                                                        : &tables::t3_of_ps;
    static constexpr const Patches* d3_patches = &tables::d3_of_ps;

    // Start value for the temperature of region 5, K, by y along the isobar.
    template <class Number>
    static Number t5_start(std::type_identity_t<Number> p, Number s_plus_r_ln_p) noexcept {
        return T_25 + evaluate<t5_start_s>(s_plus_r_ln_p - 8.5058, p / p_max_5);
    }

    // The O-family has no phase test of its own for (p, s).
    template <class Number>
    static machine::Truth<Number> is_wet_o(Number p, Number s) noexcept {
        return p < Backward<Number>::p3sat(s);
    }

    static double along_isochore(double v, double s) noexcept { return s - R * log(v); }

    // s2(Ts) is 0.007 to 0.19 more than 7.06 + 0.392 ln v, the mixture at 623.15 K 0.015 to 0.057 more
    static bool is_wet(double s, double along) noexcept {
        return s < 7.06 + 0.392 / R * (s - along);
    }
    static double wet_below_13(double v) noexcept { return 3.42 + 197 * v; }
    static constexpr double hot_above = 8.824;   // s - R ln v, which at 1073.15 K is <= 8.83
    static constexpr double dense_above = 3.39;  // s1(p, 623.15 K) >= 3.397
    static constexpr double thin_above = 5.261;  // s2(p, TB23) <= 5.2606

    // (ds/dp)_T, kJ/(kg K MPa)
    static double slope_by_p(double /* t */, double /* v */, double v_t) noexcept {
        return -1000 * v_t;
    }

    template <class Equation>
    static constexpr auto with_v = Equation::vs;
    template <class Equation>
    static constexpr auto tangents_with_v = Equation::vs_tangents;
    template <class Equation>
    static constexpr auto tangent = Equation::s_plus_r_ln_p_tangent_t;
    template <class Equation>
    static constexpr auto value = Equation::s_plus_r_ln_p;
};
template <class Number>
inline constexpr auto Entropy::tangent<Region1<Number>> = Region1<Number>::s_tangent_t;
template <class Number>
inline constexpr auto Entropy::value<Region1<Number>> = Region1<Number>::s;

// The region of an equation in p and T.
template <class Equation>
inline constexpr Region region_of = Region::none;
template <class Number>
inline constexpr Region region_of<Region1<Number>> = Region::one;
template <class Number>
inline constexpr Region region_of<Region2<Number>> = Region::two;
template <class Number>
inline constexpr Region region_of<Region5<Number>> = Region::five;

// What tangent and value of an equation are at y.
template <class Y, class Equation, class Number>
[[nodiscard]] Number along_isobar(Number p, Number y) noexcept {
    return region_of<Equation> == Region::one ? y : Y::along_isobar(p, y);
}

}  // namespace vaprix::inverse
