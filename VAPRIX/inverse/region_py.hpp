// SPDX-License-Identifier: MIT
//
// Region of (p, h) and (p, s), in the two forms that the families decide by.
// Source: IAPWS R7-97(2012); IAPWS SR3-03(2014), Eqs. (10) and (11) for the phase in region 3.
#pragma once

#include "inverse/second_variable.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::inverse {

// Region of (p, y) in a pressure within the range, by the equations at the limits of the regions.
template <class Y>
[[nodiscard]] Region region_by_equations(double p, double y) noexcept {
    const auto y1 = [p](double t) noexcept { return Y::y.region1(p, t); };
    const auto y2 = [p](double t) noexcept { return Y::y.region2(p, t); };
    const auto liquid = [&]() noexcept { return y >= y1(T_min) ? Region::one : Region::none; };

    if (!(y >= Y::lowest && y <= Y::highest)) return Region::none;
    if (p <= psat_13) {
        const double ts = tsat(p);
        if (y <= y1(ts)) return liquid();
        if (y < y2(ts)) return Region::wet;
        if (y <= Y::surely_region2 || y <= y2(T_25)) return Region::two;
        if (y < Y::surely_region5) return Region::five;
        return Y::t5(p, y) <= Y::t_search_max ? Region::five : Region::none;
    }
    if (y >= Y::beyond_region1) {
        if (y > Y::dense_outside) return Region::none;
        if (y > Y::dense_region5 && p <= p_max_5) return Region::five;
        if (y >= y2(t_b23(p))) {
            if (y <= y2(T_25)) return Region::two;
            return p <= p_max_5 ? Region::five : Region::none;
        }
    } else if (y <= y1(T_13)) {
        return liquid();
    }
    return Region::three;
}

// The same for any pair, at once where the bounds of the limits settle it; a NaN is outside. Region
// 3 below the critical pressure may still be wet steam, which the families decide by tests of their
// own.
template <class Y>
[[nodiscard]] VAPRIX_INLINE Region region_but_phase(double p, double y) noexcept {
    if (!(p <= p_max && p >= p_min)) return Region::none;
    const IsobarLimits& at = Y::limits[isobar_band(p)];
    const auto above = [y](LimitBounds limit) noexcept {
        return y > static_cast<double>(limit.high);
    };
    const auto below = [y](LimitBounds limit) noexcept {
        return y < static_cast<double>(limit.low);
    };
    if (above(at.cold) && below(at.liquid)) return Region::one;
    if (above(at.vapour) && below(at.t25)) return Region::two;
    if (above(at.liquid) && below(at.vapour)) return p <= psat_13 ? Region::wet : Region::three;
    if (above(at.t25) && below(at.t_max)) return Region::five;
    return region_by_equations<Y>(p, y);
}

// The phase, with a test of its own: B form of the region, by the backward boundary equation.
template <class Y>
[[nodiscard]] Region region_b(double p, double y) noexcept {
    const Region region = region_but_phase<Y>(p, y);
    return region == Region::three && p < p_crit && p < Y::p3sat(y) ? Region::wet : region;
}

// O form of the region.
template <class Y>
[[nodiscard]] VAPRIX_INLINE Region region_o(double p, double y) noexcept {
    const Region region = region_but_phase<Y>(p, y);
    return region == Region::three && p < p_crit && Y::is_wet_o(p, y) ? Region::wet : region;
}

}  // namespace vaprix::inverse
