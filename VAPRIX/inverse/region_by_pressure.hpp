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

using pt::two_phase;

// Region of (p, y) in a pressure within the range: 1, 2, 3, 5, two_phase or pt::outside, by the
// equations at the limits of the regions.
template <class Y>
[[nodiscard]] int region_by_equations(double p, double y) noexcept {
    const auto y1 = [p](double t) noexcept { return Y::y.region1(p, t); };
    const auto y2 = [p](double t) noexcept { return Y::y.region2(p, t); };
    const auto liquid = [&]() noexcept { return y >= y1(T_min) ? 1 : pt::outside; };

    if (!(y >= Y::lowest && y <= Y::highest)) return pt::outside;
    if (p <= psat_13) {
        const double ts = tsat(p);
        if (y <= y1(ts)) return liquid();
        if (y < y2(ts)) return two_phase;
        if (y <= Y::surely_region2 || y <= y2(T_25)) return 2;
        if (y < Y::surely_region5) return 5;
        if (y >= Y::outside_from) return pt::outside;
        return Y::t5(p, y) <= Y::t_search_max ? 5 : pt::outside;
    }
    if (y >= Y::beyond_region1) {
        if (y > Y::dense_outside) return pt::outside;
        if (y > Y::dense_region5 && p <= p_max_5) return 5;
        if (y >= y2(t_b23(p))) {
            if (y <= y2(T_25)) return 2;
            return p <= p_max_5 ? 5 : pt::outside;
        }
    } else if (y <= y1(T_13)) {
        return liquid();
    }
    return 3;
}

// The same for any pair, at once where the bounds of the limits settle it; a NaN is outside. A 3
// below the critical pressure may still be wet steam, which the families decide by tests of their
// own.
template <class Y>
[[nodiscard]] int region_but_phase(double p, double y) noexcept {
    if (!(p <= p_max && p >= p_min)) return pt::outside;
    const IsobarLimits& at = Y::limits[isobar_band(p)];
    const auto above = [y](LimitBounds limit) noexcept {
        return y > static_cast<double>(limit.high);
    };
    const auto below = [y](LimitBounds limit) noexcept {
        return y < static_cast<double>(limit.low);
    };
    if (above(at.cold) && below(at.liquid)) return 1;
    if (above(at.vapour) && below(at.t25)) return 2;
    if (above(at.liquid) && below(at.vapour)) return p <= psat_13 ? two_phase : 3;
    if (above(at.t25) && below(at.t_max)) return 5;
    return region_by_equations<Y>(p, y);
}

// Phase of a 3 below the critical pressure by the backward boundary equation.
template <class Y>
[[nodiscard]] bool is_wet_b(double p, double y) noexcept {
    return p < Y::p3sat(y);
}

// B form of the region.
template <class Y>
[[nodiscard]] int region_b(double p, double y) noexcept {
    const int region = region_but_phase<Y>(p, y);
    return region == 3 && p < p_crit && is_wet_b<Y>(p, y) ? two_phase : region;
}

// O form of the region.
template <class Y>
[[nodiscard]] int region_o(double p, double y) noexcept {
    const int region = region_but_phase<Y>(p, y);
    return region == 3 && p < p_crit && Y::is_wet_o(p, y) ? two_phase : region;
}

// Region as the exports report it.
template <class Y>
[[nodiscard]] double region_reported(double p, double y) noexcept {
    return pt::reported(region_b<Y>(p, y));
}

}  // namespace vaprix::inverse
