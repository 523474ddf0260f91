// SPDX-License-Identifier: MIT
//
// O-family of (T, density).
// Given:    t  temperature, K, 273.15 to 2273.15;  d  density, kg/m3, of a state in the range of
//           (p, T) or of wet steam.
// Failure:  -99999.0 with code -10003 for a negative density and -10057 for any other state
//           outside.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with the density solved for the
//           pressure in regions 1, 2 and 5.
#pragma once

#include "frame/error_code.hpp"
#include "inverse/tv.hpp"
#include "inverse/volume_limits.hpp"
#include "pt/properties.hpp"
#include "pt/region_pt.hpp"
#include "pt/saturated_state.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::td {

// Region of the state.
[[nodiscard]] inline int region_of(double t, double d) noexcept {
    return inverse::is_density(d) ? tv::region(t, 1 / d) : pt::outside;
}

// Region of the state; pt::outside with the code stored.
[[nodiscard]] inline int region_checked(double t, double d) noexcept {
    if (d < 0) {
        store(ErrorCode::negative_density);
        return pt::outside;
    }
    const int region = region_of(t, d);
    if (region == pt::outside) store(ErrorCode::property_range);
    return region;
}

// The property of a single phase.
template <const auto& property>
[[nodiscard]] double evaluate_in(int region, double t, double d) noexcept {
    switch (region) {
        case 1: return property.region1(tv::pressure_in(1, t, 1 / d), t);
        case 2: return property.region2(tv::pressure_in(2, t, 1 / d), t);
        case 3: return property.region3(d, t);
        default: return property.region5(tv::pressure_in(5, t, 1 / d), t);
    }
}

// A property that mixes linearly in the quality: energies and entropy.
template <const pt::Property& property>
[[nodiscard]] double mixed(double t, double d) noexcept {
    const int region = region_checked(t, d);
    if (region == pt::outside) return failed;
    if (region != pt::saturation_line) return evaluate_in<property>(region, t, d);
    const pt::SaturatedState saturated(psat(t), t);
    return saturated.mixture<property>(saturated.quality<pt::v>(1 / d));
}

// A property that wet steam does not have; wet is the code that it stores then.
template <const auto& property, ErrorCode wet>
[[nodiscard]] double single_phase(double t, double d) noexcept {
    const int region = region_checked(t, d);
    if (region == pt::outside) return failed;
    return region == pt::saturation_line ? fail(wet) : evaluate_in<property>(region, t, d);
}

[[nodiscard]] double p(double t, double d) noexcept;  // pressure, MPa; of wet steam ps(T)
[[nodiscard]] double z(double t, double d) noexcept;  // compressibility factor p/(d R T)

// Fugacity, MPa, of a single phase, which alone stores -10001 for a temperature below the range,
// -10002 for a density not above 0 and -10050 for a temperature above the range.
[[nodiscard]] double fugacity(double t, double d) noexcept;

// Vapour quality; a single phase stores -10058.
[[nodiscard]] double x(double t, double d) noexcept;

}  // namespace vaprix::td
