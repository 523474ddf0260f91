// SPDX-License-Identifier: MIT
//
// Where an isobar of the enthalpy or the entropy crosses the limits of the regions, as bounds over
// narrow bands of pressure: they settle most regions of (p, h) and (p, s) without any equation.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/constants.hpp"

namespace vaprix {

struct LimitBounds {
    float low, high;
};

// The limits along an isobar upwards: the cold end and the hot end of region 1, the beginning and
// the end of region 2, the end of region 5. Above 50 MPa the last is the end of region 2.
struct IsobarLimits {
    LimitBounds cold, liquid, vapour, t25, t_max;
};

// Bands of pressure from p_min to p_max, a sixteenth of an octave each: the exponent and the first
// four bits of the fraction of the double.
inline constexpr int band_bits_dropped = 48;
inline constexpr std::size_t first_band = std::bit_cast<std::uint64_t>(p_min) >> band_bits_dropped;
inline constexpr std::size_t isobar_bands =
    (std::bit_cast<std::uint64_t>(p_max) >> band_bits_dropped) - first_band + 1;

[[nodiscard]] inline std::size_t isobar_band(double p) noexcept {
    return (std::bit_cast<std::uint64_t>(p) >> band_bits_dropped) - first_band;
}

}  // namespace vaprix
