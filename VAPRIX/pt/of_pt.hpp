// SPDX-License-Identifier: MIT
//
// States of (p, T): by the published equations directly (B), consistent with the basic equations
// (O), and in a given region.
// Given:    p  pressure, MPa;  t  temperature, K.
// Refused:  outside the range of validity, -10055.
// Source:   IAPWS R7-97(2012); IAPWS SR5-05(2016) for the B-family's volume of region 3.
#pragma once

#include "frame/elementary.hpp"
#include "pt/region_pt.hpp"
#include "regions/region3_density.hpp"
#include "regions/region3_volume.hpp"
#include "state/wet.hpp"

namespace vaprix {

// A state in a region that has been settled, region 3 at the volume of the backward equations.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State in_region_b(Region region, double p, double t) noexcept {
    if constexpr (asked.single || asked.density) {
        if (region == Region::three) {
            const double v = region3::v_pt(p, t);
            return {.region = region, .p = p, .t = t, .d = 1 / v, .v = v};
        }
    }
    const State state{.region = region, .p = p, .t = t};
    return region == Region::wet ? state : with_volume<asked>(state);
}

template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_pt_b(double p, double t) noexcept {
    const Region region = region_pt(p, t);
    return region == Region::none ? outside : in_region_b<asked>(region, p, t);
}

// The region is the number given, unchecked; 0 is determined and written back. Refused, without a
// code: a number without a single-phase equation.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_pt_given(double p, double t, int& number) noexcept {
    if (number == 0) number = static_cast<int>(region_pt(p, t));
    const bool has_equation = (number >= 1 && number <= 3) || number == 5;
    return has_equation ? in_region_b<asked>(static_cast<Region>(number), p, t) : refused(no_code);
}

[[nodiscard]] inline bool at_critical_point(double p, double t) noexcept {
    constexpr double near = 1e-9;  // K and MPa
    return fabs(t - T_crit) < near && fabs(p - p_crit) < near;
}

// Region 3 at the density that reproduces p, exactly 322 kg/m3 at the critical point; which is of
// region 3 where the coexisting phases are not asked for.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State of_pt_o(double p, double t) noexcept {
    const Region region = region_pt(p, t);
    if (region == Region::none) return outside;
    if (region == Region::wet && (asked.wet || !at_critical_point(p, t))) {
        return wet_state<asked>(p, t);
    }
    if (region == Region::three || region == Region::wet) {
        if constexpr (asked.single || asked.density) {
            if (at_critical_point(p, t)) return dense_state(p, t, d_crit);
            const double d = region3_density::density_pt(p, t);
            return d > 0 ? dense_state(p, t, d) : refused(ErrorCode::property_range);
        }
    }
    return with_density<asked>(gibbs_state(region, p, t));
}

// Fugacity has codes of its own outside.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State fugacity_of_pt(double p, double t) noexcept {
    if (t < T_min - limit_tolerance) return refused(ErrorCode::fugacity_below_t_min);
    if (!(p > 0)) return refused(ErrorCode::fugacity_not_positive);
    return of_pt_o<asked>(p, t);
}

}  // namespace vaprix
