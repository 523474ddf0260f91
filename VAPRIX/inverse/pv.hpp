// SPDX-License-Identifier: MIT
//
// Properties of (p, v).
// Given:    p  pressure, MPa, 0.0006112127 to 100;  v  specific volume, m3/kg. A state that (p, T)
//           does not reach and that is not wet steam is outside.
// Failure:  -99999.0 outside the range, with the code that the export names; cp and w also for wet
//           steam, x also for a single phase.
// Notes:    there is no backward equation: both families answer by the state that reproduces p and
//           v through the basic equations. Cold liquid is densest at some temperature; state() is
//           the one at or above it, cold_state() the one below.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with the volume solved for the
//           temperature.
#pragma once

#include "frame/error_code.hpp"
#include "inverse/volume_limits.hpp"
#include "pt/properties.hpp"
#include "pt/region_pt.hpp"
#include "pt/saturated_state.hpp"

namespace vaprix::pv {

struct State {
    int region;  // 1, 2, 3, 5, pt::saturation_line for wet steam, or pt::outside
    double t;    // K
};

[[nodiscard]] State state(double p, double v) noexcept;
[[nodiscard]] State cold_state(double p, double v) noexcept;

// Region as the exports report it.
template <auto resolve>
[[nodiscard]] double region(double p, double v) noexcept {
    return pt::reported(resolve(p, v).region);
}

// Temperature, K.
template <auto resolve, ErrorCode code>
[[nodiscard]] double t(double p, double v) noexcept {
    const State found = resolve(p, v);
    return found.region == pt::outside ? fail<code>() : found.t;
}

// Of density and pressure.
template <auto resolve, ErrorCode code>
[[nodiscard]] double t_dp(double d, double p) noexcept {
    return inverse::is_density(d) ? t<resolve, code>(p, 1 / d) : fail<code>();
}

template <const pt::Property& property>
[[nodiscard]] double evaluate_in(const State& state, double p, double v) noexcept {
    switch (state.region) {
        case 1: return property.region1(p, state.t);
        case 2: return property.region2(p, state.t);
        case 3: return property.region3(1 / v, state.t);
        default: return property.region5(p, state.t);
    }
}

// A property that mixes linearly in the quality: enthalpy and entropy.
template <const pt::Property& property, ErrorCode code>
[[nodiscard]] double mixed(double p, double v) noexcept {
    const State found = state(p, v);
    if (found.region == pt::outside) return fail<code>();
    if (found.region != pt::saturation_line) return evaluate_in<property>(found, p, v);
    const pt::SaturatedState saturated(p, found.t);
    return saturated.mixture<property>(saturated.quality<pt::v>(v));
}

// A property that wet steam does not have: heat capacity, speed of sound.
template <const pt::Property& property, ErrorCode code>
[[nodiscard]] double single_phase(double p, double v) noexcept {
    const State found = state(p, v);
    if (found.region == pt::outside) return fail<code>();
    return found.region == pt::saturation_line ? failed : evaluate_in<property>(found, p, v);
}

// Vapour quality; a single phase has none.
template <ErrorCode code>
[[nodiscard]] double x(double p, double v) noexcept {
    const State found = state(p, v);
    if (found.region == pt::outside) return fail<code>();
    if (found.region != pt::saturation_line) return failed;
    return pt::SaturatedState(p, found.t).quality<pt::v>(v);
}

}  // namespace vaprix::pv
