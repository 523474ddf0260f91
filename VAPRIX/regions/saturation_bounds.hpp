// SPDX-License-Identifier: MIT
//
// Bounds of the saturation pressure over narrow bands of temperature: they tell liquid from vapour
// without Eq. (30) unless the state is near the line.
// Source: IAPWS R7-97(2012), Eq. (30), evaluated when the library is compiled.
#pragma once

#include <array>
#include <cstddef>

#include "frame/constants.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/saturation.hpp"

namespace vaprix {

struct PressureBounds {
    float low, high;  // MPa
};

namespace detail {

constexpr long double square_root(long double x) {
    long double root = x > 1 ? x : 1;
    for (long double next = 0.5L * (root + x / root); next < root;) {
        root = next;
        next = 0.5L * (root + x / root);
    }
    return root;
}

constexpr long double psat_extended(long double t) {
    constexpr auto n = [](std::size_t k) { return extended(tables::saturation[k - 1]); };
    const long double theta = t + n(9) / (t - n(10));
    const long double A = (theta + n(1)) * theta + n(2);
    const long double B = (n(3) * theta + n(4)) * theta + n(5);
    const long double C = (n(6) * theta + n(7)) * theta + n(8);
    const long double beta = 2 * C / (square_root(B * B - 4 * A * C) - B);
    return (beta * beta) * (beta * beta);
}

inline constexpr std::size_t psat_bands = 128;
inline constexpr double psat_bands_per_kelvin = psat_bands / (T_13 - T_min);

// The margins cover the rounding of Eq. (30), of the band's own ends and to single precision, and the
// half width of 1e-12 MPa that the line is given.
inline constexpr auto psat_band_bounds = [] {
    constexpr long double relative = 1e-7L;
    constexpr long double absolute = 2e-12L;
    std::array<PressureBounds, psat_bands + 1> bounds{};
    const auto psat_at = [](std::size_t band) {
        return psat_extended(extended(T_min) +
                             static_cast<long double>(band) / extended(psat_bands_per_kelvin));
    };
    for (std::size_t k = 0; k < bounds.size(); ++k) {
        bounds[k].low = static_cast<float>(psat_at(k) * (1 - relative) - absolute);
        bounds[k].high = static_cast<float>(psat_at(k + 1) * (1 + relative) + absolute);
    }
    return bounds;
}();

}  // namespace detail

// Bounds of psat(t) for a t, K, from 273.15 (less a rounding) to 623.15.
[[nodiscard]] inline const PressureBounds& psat_bounds(double t) noexcept {
    return detail::psat_band_bounds[static_cast<std::size_t>((t - T_min) *
                                                             detail::psat_bands_per_kelvin)];
}

}  // namespace vaprix
