// SPDX-License-Identifier: MIT
//
// Range of validity and region of (p, T).
#pragma once

#include "frame/constants.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_bounds.hpp"
#include "regions/saturation_line.hpp"
#include "state/state.hpp"

namespace vaprix {

// Half width of the saturation line and of the limits that are widened, taken as MPa and as K
// alike.
inline constexpr double limit_tolerance = 1e-12;

// What the rounding of a given pair makes of its temperature, K: an inverse puts a temperature this
// far beyond a limit on the limit, so that (p, T) does not refuse it.
inline constexpr double t_rounding = 1e-10;
[[nodiscard]] constexpr double onto_limit(double t, double low, double high) noexcept {
    if (t < low && t >= low - t_rounding) return low;
    if (t > high && t <= high + t_rounding) return high;
    return t;
}

// Region of (p, t).
// Given:    p  pressure, MPa;  t  temperature, K.
// Returned: the region, wet on the saturation line. The limits themselves are inside; a NaN is
//           outside.
// Source:   IAPWS R7-97(2012), section 2; boundaries by Eqs. (5), (30) and (31).
[[nodiscard]] VAPRIX_INLINE Region region_pt(double p, double t) noexcept {
    if (!(t >= T_min - limit_tolerance && t <= T_max && p <= p_max && p >= p_min))
        return Region::none;
    if (t <= T_13) {
        const PressureBounds& bounds = psat_bounds(t);
        if (p < static_cast<double>(bounds.low)) return Region::two;
        if (p > static_cast<double>(bounds.high)) return Region::one;
        const double ps = psat(t);
        if (p <= ps - limit_tolerance) return Region::two;
        if (p >= ps + limit_tolerance) return Region::one;
        return Region::wet;
    }
    if (t > T_23_max) {
        if (t <= T_25 + limit_tolerance) return Region::two;
        return p <= p_max_5 ? Region::five : Region::none;
    }
    if (p > p_b23(t)) {
        if (p <= p_crit) {
            const double ts = tsat(p);
            if (ts - limit_tolerance < t && t <= ts + limit_tolerance) return Region::wet;
        }
        return Region::three;
    }
    return Region::two;
}

}  // namespace vaprix
