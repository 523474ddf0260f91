// SPDX-License-Identifier: MIT
//
// Wet steam of given quality.
// Given:    t  temperature, K, 273.15 to 647.096;  p  pressure, MPa, up to 22.064;  x  vapour
//           quality, kg of vapour per kg, 0 to 1, the saturated phases themselves. A NaN is out of
//           range.
// Failure:  -99999.0 out of range. The B-family stores no code; the O-family -10019 (temperature)
//           or -10020 (pressure), which are tested first, and -10036 (quality).
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (31); the lever rule.
#pragma once

#include <cmath>

#include "saturation/saturated.hpp"

namespace vaprix::saturation {

[[nodiscard]] inline bool is_quality(double x) noexcept { return x >= 0 && x <= 1; }

// B-family. The absolute pressure is tested and nothing from below, deliberately: an iteration may
// pass through p <= 0.
template <const auto& property>
[[nodiscard]] double of_px_b(double p, double x) noexcept {
    if (!(is_quality(x) && std::fabs(p) <= p_crit)) return failed;
    return pt::SaturatedState(p, tsat(p)).mixture<property>(x);
}
[[nodiscard]] double v_px_b(double p, double x) noexcept;  // specific volume; infinite at p = 0
template <const auto& property>
[[nodiscard]] double of_tx_b(double t, double x) noexcept {
    const double p = p_b(t);
    return p > 0 && is_quality(x) ? pt::SaturatedState(p, t).mixture<property>(x) : failed;
}

// O-family of (p, x): at the temperature that reproduces p. The density is that of the mixed
// volumes, within 1e-9 MPa of the critical pressure 322 kg/m3 at any x, a NaN as well: both phases
// are the same there.
[[nodiscard]] double d_px_o(double p, double x) noexcept;
[[nodiscard]] double v_px_o(double p, double x) noexcept;
template <const auto& property>
[[nodiscard]] double of_px_o(double p, double x) noexcept {
    const double t = t_o(p);
    if (!(t > 0)) return failed;
    if (is_quality(x)) return state_o(p, t).mixture<property>(x);
    return near_critical(p) ? state_o(p, t).liquid<property>() : fail(ErrorCode::quality_range);
}

// Saturation pressure, MPa, of a T and an x that are in range; otherwise the sentinel, with code.
[[nodiscard]] double p_tx_o(double t, double x) noexcept;

// O-family of (T, x).
template <const auto& property>
[[nodiscard]] double of_tx_o(double t, double x) noexcept {
    const double p = p_tx_o(t, x);
    return p > 0 ? pt::SaturatedState(p, t).mixture<property>(x) : failed;
}
[[nodiscard]] double d_tx_o(double t, double x) noexcept;  // density, kg/m3
[[nodiscard]] double z_tx_o(double t, double x) noexcept;  // compressibility factor

// Fugacity, MPa, which both phases share: that of the liquid. A quality out of range stores -10057.
[[nodiscard]] double fugacity_tx_o(double t, double x) noexcept;

}  // namespace vaprix::saturation
