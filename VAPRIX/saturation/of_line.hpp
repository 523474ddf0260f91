// SPDX-License-Identifier: MIT
//
// Saturated and wet states by temperature or pressure, and quality.
// Given:    t  temperature, K, 273.15 to 647.096;  p  pressure, MPa, up to 22.064;  x  vapour
//           quality, 0 to 1. A NaN is out of range.
// Refused:  a temperature with -10019, a pressure with -10020, a quality with -10036.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15) and (28) at the saturation pressure of Eq. (30), or
//           the saturation temperature of Eq. (31) (B-family) or of Eq. (30) solved (O-family).
#pragma once

#include <algorithm>

#include "frame/elementary.hpp"
#include "regions/saturation_line.hpp"
#include "state/wet.hpp"

namespace vaprix {

// A saturated phase as a state of its own.
enum class Phase { liquid, vapour };

template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State saturated_phase(const State& line) noexcept {
    if (line.region != Region::wet) return line;
    if constexpr (!asked.single && !asked.density) {
        const Region single = phase == Phase::liquid ? Region::one : Region::two;
        return gibbs_state(line.t > T_13 ? Region::three : single, line.p, line.t);
    }
    const State state = phase == Phase::liquid ? liquid_end(line) : vapour_end(line);
    return state.region == Region::three ? state : with_density<asked>(state);
}

// What the coexisting phases are asked for, given what one of them is.
[[nodiscard]] constexpr Asked phases(Asked asked) noexcept {
    return {.p = asked.p, .t = asked.t, .wet = asked.single || asked.density || asked.wet};
}

// --- by temperature ---

template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State line_of_t(double t) noexcept {
    if (!(t >= T_min && t <= T_crit)) {
        return {.t = t, .refusal = ErrorCode::saturation_temperature_range};
    }
    return wet_state<asked>(psat(t), t);
}

// --- by pressure ---

// Lowest pressure of the B-family, MPa: a little below the line on purpose (270.4175 K).
inline constexpr double line_p_lowest = 0.0005;
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State line_of_p_b(double p) noexcept {
    if (!(p >= line_p_lowest && p <= p_crit)) return refused(ErrorCode::saturation_pressure_range);
    return wet_state<asked>(p, asked.t || asked.wet ? tsat(p) : 0);
}

// Distance from the critical pressure, MPa, and from the critical temperature, K, within which both
// phases have the critical density: a limit that misses it by a rounding counts as it.
inline constexpr double critical_tolerance = 1e-9;

[[nodiscard]] inline bool near_critical(double p) noexcept {
    return fabs(p - p_crit) < critical_tolerance;
}

// O-family, at the temperature that reproduces p. Any p above 0 is accepted: below the line the
// secant steps extrapolate, down to about 1e-8 MPa.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State line_of_p_o(double p) noexcept {
    if (!(p > 0 && p <= p_crit)) return refused(ErrorCode::saturation_pressure_range);
    State state{.region = Region::wet, .p = p, .t = tsat_exact(p)};
    if constexpr (asked.wet)
        state.ends = near_critical(p) ? SaturatedEnds<double>{d_crit, d_crit} : ends_at(p, state.t);
    return state;
}

// O-family, at the temperature that the saturation pressure of t gives back, deliberately: the same
// state as by pressure. In the last 1.2e-9 K Eq. (30) exceeds the critical pressure by a rounding,
// which is no refusal.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State line_of_t_o(double t) noexcept {
    const State line = line_of_t<Asked{.p = true}>(t);
    return line.region == Region::none ? line : line_of_p_o<asked>(std::min(line.p, p_crit));
}

// --- one phase: the catalogue's liquid_of_t is phase_of_t<Phase::liquid>, and so on ---

template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_t(double t) noexcept {
    return saturated_phase<phase, asked>(line_of_t<phases(asked)>(t));
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_t_o(double t) noexcept {
    return saturated_phase<phase, asked>(line_of_t_o<phases(asked)>(t));
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_p_b(double p) noexcept {
    return saturated_phase<phase, asked>(line_of_p_b<phases(asked)>(p));
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_p_o(double p) noexcept {
    return saturated_phase<phase, asked>(line_of_p_o<phases(asked)>(p));
}

// Up to a rounding beyond the critical point: 322 kg/m3 there.
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_t_widened(double t) noexcept {
    if (fabs(t - T_crit) < critical_tolerance) return dense_state(p_crit, t, d_crit);
    return phase_of_t<phase, asked>(t);
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_p_widened(double p) noexcept {
    return near_critical(p) ? dense_state(p, T_crit, d_crit) : phase_of_p_o<phase, asked>(p);
}

// --- wet steam of given quality ---

[[nodiscard]] inline bool is_quality(double x) noexcept { return x >= 0 && x <= 1; }

// The temperature is tested before the quality.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State wet_of_tx(double t, double x) noexcept {
    State state = line_of_t<asked>(t);
    if (state.region == Region::none) return state;
    if (!is_quality(x)) return refused(ErrorCode::quality_range);
    state.x = x;
    return state;
}

// One phase of it: both have the same fugacity.
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_tx(double t, double x) noexcept {
    const State state = phase_of_t<phase, asked>(t);
    if (state.region == Region::none || is_quality(x)) return state;
    return refused(ErrorCode::property_range);
}

// The absolute pressure is tested and nothing from below, deliberately: an iteration may pass
// through p <= 0.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State wet_of_px_b(double p, double x) noexcept {
    if (!(is_quality(x) && fabs(p) <= p_crit)) return refused(no_code);
    State state = wet_state<asked>(p, tsat(p));
    state.x = x;
    return state;
}

// A quality out of range is refused before a pressure below it. Next to the critical point, where
// both phases are the same, any quality is taken, a NaN as well.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State wet_of_px_o(double p, double x) noexcept {
    const bool good = is_quality(x);
    if (!good && p <= p_crit && !near_critical(p)) return refused(ErrorCode::quality_range);
    State state = line_of_p_o<asked>(p);
    state.x = good ? x : 0;
    return state;
}
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State wet_of_px_widened(double p, double x) noexcept {
    if (near_critical(p)) return dense_state(p, T_crit, d_crit);
    return wet_of_px_o<asked>(p, x);
}

}  // namespace vaprix
