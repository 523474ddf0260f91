// SPDX-License-Identifier: MIT
//
// Properties of (p, T) with the region given, the form on which the B-family rests: region 3 at the
// volume of the backward equations.
// Given:    p  pressure, MPa;  t  temperature, K;  region  0 to have it determined and written back
//           (0 again when the state is outside), any other value is taken as it is, without a range
//           check.
// Failure:  0.0 for a region that names no single-phase equation; no code.
// Source:   IAPWS R7-97(2012), Tables 3, 12, 31 and 41; IAPWS SR5-05(2016) for the volume of region
//           3.
#pragma once

#include "pt/properties.hpp"
#include "pt/region_pt.hpp"
#include "regions/region3_volume.hpp"

namespace vaprix::pt {

// The property in a region that has been settled.
template <const auto& property>
[[nodiscard]] inline double evaluate_in(int region, double p, double t) noexcept {
    switch (region) {
        case 1: return property.region1(p, t);
        case 2: return property.region2(p, t);
        case 3: return property.dense(p, 1 / region3::v_pt(p, t), t);
        case 5: return property.region5(p, t);
        default: return 0.0;
    }
}

// Specific volume, m3/kg, which region 3 has without a detour through the density.
[[nodiscard]] inline double volume_in(int region, double p, double t) noexcept {
    switch (region) {
        case 1: return region1::v(p, t);
        case 2: return region2::v(p, t);
        case 3: return region3::v_pt(p, t);
        case 5: return region5::v(p, t);
        default: return 0.0;
    }
}

// The region itself, determined where it is 0.
inline int settle(double p, double t, int& region) noexcept {
    if (region == outside) region = region_pt(p, t);
    return region;
}

template <const auto& property>
[[nodiscard]] double given(double p, double t, int& region) noexcept {
    return evaluate_in<property>(settle(p, t, region), p, t);
}

[[nodiscard]] inline double v_given(double p, double t, int& region) noexcept {
    return volume_in(settle(p, t, region), p, t);
}

}  // namespace vaprix::pt
