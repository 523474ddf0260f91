// SPDX-License-Identifier: MIT
//
// Range of validity and region of (p, T).
#pragma once

#include "frame/constants.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_bounds.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::pt {

// Region numbers are those of IAPWS R7-97(2012), Fig. 1, with two of our own. A host may pass any
// number.
inline constexpr int outside = 0;          // outside the range of validity, or not yet determined
inline constexpr int saturation_line = 9;  // within the tolerance of the saturation line
inline constexpr int two_phase = saturation_line;  // by other pairs than (p, T): wet steam

[[nodiscard]] constexpr bool is_single_phase(int region) noexcept {
    return region != outside && region != saturation_line;
}

// Region as the exports report it: the saturation line and wet steam as 4, the number of the
// equation.
[[nodiscard]] constexpr double reported(int region) noexcept {
    return region == saturation_line ? 4.0 : region;
}

// Half width of the saturation line and of the limits that are widened, taken as MPa and as K
// alike.
inline constexpr double tolerance = 1e-12;

// Region of (p, t).
// Given:    p  pressure, MPa;  t  temperature, K.
// Returned: 1, 2, 3, 5, saturation_line or outside. The limits themselves are inside; a NaN is
//           outside.
// Source:   IAPWS R7-97(2012), section 2; boundaries by Eqs. (5), (30) and (31).
[[nodiscard]] inline int region_pt(double p, double t) noexcept {
    if (!(t >= T_min - tolerance && t <= T_max && p <= p_max && p >= p_min)) return outside;
    if (t <= T_13) {
        const PressureBounds& bounds = psat_bounds(t);
        if (p < bounds.low) return 2;
        if (p > bounds.high) return 1;
        const double ps = psat(t);
        if (p <= ps - tolerance) return 2;
        if (p >= ps + tolerance) return 1;
        return saturation_line;
    }
    if (t > T_23_max) {
        if (t <= T_25 + tolerance) return 2;
        return p <= p_max_5 ? 5 : outside;
    }
    if (p > p_b23(t)) {
        if (p <= p_crit) {
            const double ts = tsat(p);
            if (ts - tolerance < t && t <= ts + tolerance) return saturation_line;
        }
        return 3;
    }
    return 2;
}

}  // namespace vaprix::pt
