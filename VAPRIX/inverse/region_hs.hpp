// SPDX-License-Identifier: MIT
//
// Region of (h, s) by the boundary equations of the releases.
// Source: IAPWS SR4-04(2014), Eqs. (3) to (8).
#pragma once

#include <utility>

#include "inverse/second_variable.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "regions/boundaries_hs.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3_backward.hpp"

namespace vaprix::inverse {

// Limits that hold every state, a little outside the range of validity.
inline constexpr double h_lowest = -0.05, h_highest = 7377;      // kJ/kg
inline constexpr double s_lowest = -0.0086, s_highest = 13.906;  // kJ/(kg K)

// Enthalpy, kJ/kg, at and beyond which the pressure is above 100 MPa for certain: straight lines
// above the isobar, which is convex, from its ends at 273.15 K and 1073.15 K to 623.15 K, and above
// the isobar 50 MPa of region 5.
[[nodiscard]] inline double h_beyond_p_max(double s) noexcept {
    if (s < boundaries_hs::s_13_min) return 100 + 430 * s;
    return 1560 + (s < 6.0 ? 820 : 1110) * (s - boundaries_hs::s_13_min);
}

// Enthalpies, kJ/kg, that settle a comparison before an equation is evaluated; the extremes they
// enclose are in the comments.
inline constexpr double above_saturated = 2803.3;  // h2(p, Ts) <= 2803.285
inline constexpr double lowest_region5 = 3925.9;   // h2(p, 1073.15 K) >= 3925.96 up to 50 MPa
inline constexpr double beyond_region2 = 4160.7;   // h2(p, 1073.15 K) <= 4160.661

// Whether h at p is below that of the isotherm 1073.15 K.
[[nodiscard]] VAPRIX_INLINE bool below_t25(double p, double h) noexcept {
    if (p >= p_min && p <= p_max) {
        const LimitBounds t25 = Enthalpy::limits[isobar_band(p)].t25;
        if (h < static_cast<double>(t25.low)) return true;
        if (h > static_cast<double>(t25.high)) return false;
    }
    return h <= region2::h(p, T_25);
}

// A region by the boundary equations and, closer to the boundary than its equation is exact, the one
// beyond it.
struct RegionBeside {
    Region region;
    Region neighbour = Region::none;
};

// Region of (h, s), with limits of pressure and temperature not examined but for that between
// regions 2 and 5.
// Returned: the region; none beyond the limits above, for wet steam colder than
//           273.15 K by more than 1 kJ/kg, and for a NaN. The neighbour at 623.15 K and at the
//           boundary of regions 2 and 3.
[[nodiscard]] VAPRIX_INLINE RegionBeside region_unlimited(double h, double s) noexcept {
    using namespace boundaries_hs;
    constexpr double h_13_error = 0.02;  // kJ/kg; 3.2 mK is stated
    constexpr double p_23_error = 5e-5;  // relative; 0.0045 % is stated
    constexpr double s_rounding = 1e-9;  // kJ/(kg K), of s_23_min
    const auto divide = [](double above, double error, Region lower, Region upper) noexcept {
        if (above <= 0) std::swap(lower, upper);
        return RegionBeside{upper, fabs(above) <= error ? lower : Region::none};
    };

    // h - T s of either saturated phase is 0.0006 kJ/kg at 273.15 K
    if (!(h >= h_lowest && h <= h_highest && s >= s_lowest && s <= s_highest && h > T_min * s - 1 &&
          h < h_beyond_p_max(s))) {
        return {Region::none};
    }
    if (s <= s_liquid_13) {
        if (s >= s_liquid_min && h < h_liquid_1(s)) return {Region::wet};
        if (s <= s_13_min) return {Region::one};
        return divide(h - h_13(s), h_13_error, Region::one, Region::three);
    }
    if (s <= region3::s_crit) return {h < h_liquid_3a(s) ? Region::wet : Region::three};
    if (h > beyond_region2) return {Region::five};
    if (s < region2::s_2bc) {
        if (h <= above_saturated && h < h_vapour_2c3b(s)) return {Region::wet};
        if (s < s_23_min - s_rounding) return {Region::three};
        if (s <= s_23_max && h < h_23_max) {
            if (h <= h_23_min) return {Region::three};
            const double above = region2::p_hs(h, s) / p_b23(t_23(h, s)) - 1;
            return divide(above, p_23_error, Region::two, Region::three);
        }
    } else if (s <= s_vapour_max && h <= above_saturated && h < h_vapour_2ab(s)) {
        return {Region::wet};
    }
    if (h < lowest_region5) return {Region::two};
    return {below_t25(region2::p_hs(h, s), h) ? Region::two : Region::five};
}

}  // namespace vaprix::inverse
