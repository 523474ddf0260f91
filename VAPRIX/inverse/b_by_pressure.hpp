// SPDX-License-Identifier: MIT
//
// B-family of (p, h) and (p, s): the temperature by the backward equations, everything else from
// it.
#pragma once

#include <algorithm>

#include "inverse/region_by_pressure.hpp"
#include "pt/region_given.hpp"

namespace vaprix::inverse {

// Temperature, K, of (p, y) in a region that has been settled; 0.0 for a number without an
// equation. A backward equation that misses the end of its region by up to its own tolerance of 25
// mK is put on the end; a temperature on the wrong side of the saturation line stays as it is.
template <class Y>
[[nodiscard]] double temperature_in(int region, double p, double y) noexcept {
    constexpr double tolerance = 0.025;
    constexpr double t_25_widened = 1073.175;
    switch (region) {
        case 1: {
            const double t = Y::t1(p, y);
            return t >= T_min - tolerance ? std::max(t, T_min) : t;
        }
        case 2: {
            const double t = Y::t2(p, y);
            return t > T_25 && t <= t_25_widened ? T_25 : t;
        }
        case 3: return Y::t3(p, y);
        case 5: return Y::t5(p, y);
        case two_phase: return tsat(p);
        default: return 0.0;
    }
}

template <class Y>
[[nodiscard]] double t_given(double p, double y, int& region) noexcept {
    if (region == pt::outside) region = region_b<Y>(p, y);
    return temperature_in<Y>(region, p, y);
}

template <class Y>
[[nodiscard]] double t_b(double p, double y) noexcept {
    const int region = region_b<Y>(p, y);
    return region == pt::outside ? failed : temperature_in<Y>(region, p, y);
}

// Specific volume, m3/kg, in any region but outside.
template <class Y>
[[nodiscard]] double volume_by_pressure(int region, double p, double y) noexcept {
    const double t = temperature_in<Y>(region, p, y);
    if (region != two_phase) return pt::volume_in(region, p, t);
    const pt::SaturatedState saturated(p, t);
    return saturated.mixture<pt::v>(saturated.quality<Y::y>(y));
}

template <class Y>
[[nodiscard]] double v_b(double p, double y) noexcept {
    const int region = region_b<Y>(p, y);
    return region == pt::outside ? failed : volume_by_pressure<Y>(region, p, y);
}

// The density of region 3 comes from the backward equation v(p, y), not by way of the temperature.
template <class Y>
[[nodiscard]] double d_b(double p, double y) noexcept {
    const int region = region_b<Y>(p, y);
    if (region == pt::outside) return failed;
    return 1 / (region == 3 ? Y::v3(p, y) : volume_by_pressure<Y>(region, p, y));
}

// The entropy of (p, h), the enthalpy of (p, s).
template <class Y>
[[nodiscard]] double other_b(double p, double y) noexcept {
    const int region = region_b<Y>(p, y);
    if (region == pt::outside) return failed;
    const double t = temperature_in<Y>(region, p, y);
    if (region != two_phase) return pt::evaluate_in<Y::other>(region, p, t);
    const pt::SaturatedState saturated(p, t);
    return saturated.mixture<Y::other>(saturated.quality<Y::y>(y));
}

// A property that wet steam does not have: heat capacity, speed of sound.
template <class Y, const pt::Property& property>
[[nodiscard]] double single_phase_b(double p, double y) noexcept {
    const int region = region_b<Y>(p, y);
    if (region == pt::outside || region == two_phase) return failed;
    return pt::evaluate_in<property>(region, p, temperature_in<Y>(region, p, y));
}

// Vapour quality; a single phase has none.
template <class Y>
[[nodiscard]] double x_b(double p, double y) noexcept {
    if (region_b<Y>(p, y) != two_phase) return failed;
    return pt::SaturatedState(p, tsat(p)).quality<Y::y>(y);
}

}  // namespace vaprix::inverse
