// SPDX-License-Identifier: MIT
//
// Properties of the saturated liquid and vapour, by temperature and by pressure.
// Given:    t  temperature, K, 273.15 to 647.096;  p  pressure, MPa, 0.0005 (B-family: a little
//           below the line on purpose) or above 0 (O-family) to 22.064. A NaN is out of range.
// Failure:  -99999.0 out of range; the code that the way in stores is said there.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15) and (28) at the saturation pressure of Eq. (30), or
//           the saturation temperature of Eq. (31) (B-family) or of Eq. (30) solved (O-family).
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/error_code.hpp"
#include "pt/saturated_state.hpp"
#include "regions/saturation_line.hpp"
#include "saturation/line.hpp"

namespace vaprix::saturation {

enum class Phase { liquid, vapour };
inline constexpr Phase liquid = Phase::liquid;
inline constexpr Phase vapour = Phase::vapour;

template <Phase phase, const auto& property>
[[nodiscard]] double of(const pt::SaturatedState& state) noexcept {
    if constexpr (phase == liquid) return state.liquid<property>();
    return state.vapour<property>();
}

template <Phase phase>
[[nodiscard]] double density_of(const pt::SaturatedState& state) noexcept {
    return phase == liquid ? state.liquid_density() : state.vapour_density();
}

// By temperature, without a code.
template <Phase phase, const auto& property>
[[nodiscard]] double of_t_b(double t) noexcept {
    const double p = p_b(t);
    return p > 0 ? of<phase, property>({p, t}) : failed;
}

// By temperature, with code -10019.
template <Phase phase, const auto& property>
[[nodiscard]] double of_t(double t) noexcept {
    const double p = p_o(t);
    return p > 0 ? of<phase, property>({p, t}) : failed;
}

// By pressure, without a code.
template <Phase phase, const auto& property>
[[nodiscard]] double of_p_b(double p) noexcept {
    const double t = t_b(p);
    return t > 0 ? of<phase, property>({p, t}) : failed;
}

// Distance from the critical pressure, MPa, and from the critical temperature, K, within which the
// saturated densities are the critical one: a limit that misses it by a rounding counts as it.
inline constexpr double critical = 1e-9;

[[nodiscard]] inline bool near_critical(double p) noexcept {
    return std::fabs(p - p_crit) < critical;
}

// The state at the temperature t that reproduces p.
[[nodiscard]] inline pt::SaturatedState state_o(double p, double t) noexcept {
    if (near_critical(p)) return {p, t, d_crit};
    return {p, t};
}

// By pressure, with code -10020.
template <Phase phase, const auto& property>
[[nodiscard]] double of_p_o(double p) noexcept {
    const double t = t_o(p);
    return t > 0 ? of<phase, property>(state_o(p, t)) : failed;
}

// By temperature, with code -10019; evaluated at the temperature that the saturation pressure of t
// gives back, deliberately: the same state as by pressure. In the last 1.2e-9 K Eq. (30) exceeds
// the critical pressure by a rounding, which is no failure.
template <Phase phase, const auto& property>
[[nodiscard]] double of_t_o(double t) noexcept {
    const double p = p_o(t);
    return p > 0 ? of_p_o<phase, property>(std::min(p, p_crit)) : failed;
}

// Density, kg/m3, by temperature up to 1e-9 K above the critical one, without a code.
template <Phase phase>
[[nodiscard]] double d_t(double t) noexcept {
    constexpr double highest = 647.096000001;
    if (!(t >= T_min && t <= highest)) return failed;
    if (std::fabs(t - T_crit) < critical) return d_crit;
    return density_of<phase>({psat(t), t});
}

// Density, kg/m3, by temperature, with code -10019.
template <Phase phase>
[[nodiscard]] double d_t_o(double t) noexcept {
    const double p = p_o(t);
    return p > 0 ? density_of<phase>({p, t}) : failed;
}

// Density, kg/m3, by pressure, with code -10020.
template <Phase phase>
[[nodiscard]] double d_p(double p) noexcept {
    if (near_critical(p)) return d_crit;
    const double t = t_o(p);
    return t > 0 ? density_of<phase>({p, t}) : failed;
}

// Specific volume, m3/kg: the reciprocal of that density, of t by way of its pressure.
template <Phase phase>
[[nodiscard]] double v_p_o(double p) noexcept {
    const double d = d_p<phase>(p);
    return d > 0 ? 1 / d : failed;
}
template <Phase phase>
[[nodiscard]] double v_t_o(double t) noexcept {
    const double p = p_o(t);
    return p > 0 ? v_p_o<phase>(p) : failed;
}

// Change by vaporisation, vapour less liquid: exactly 0 at the critical temperature. Stores 0 in
// range, -10019 outside.
template <const auto& property>
[[nodiscard]] double vaporisation(double t) noexcept {
    const double p = p_o(t);
    if (!(p > 0)) return failed;
    store(ErrorCode::success);
    const pt::SaturatedState state(p, t);
    return state.vapour<property>() - state.liquid<property>();
}

}  // namespace vaprix::saturation
