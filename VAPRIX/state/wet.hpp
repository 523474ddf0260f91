// SPDX-License-Identifier: MIT
//
// States on the saturation line: the coexisting phases, and their mixtures.
#pragma once

#include "regions/saturated_densities.hpp"
#include "state/properties.hpp"

namespace vaprix {

// The coexisting phases at (p, t) on the saturation line: above 623.15 K their densities, which the
// equation of region 3 is in.
template <class Number>
[[nodiscard]] VAPRIX_INLINE SaturatedEnds<Number> ends_at(Number p, Number t) noexcept {
    if (machine::none(t > T_13)) return {};
    const SaturatedDensities<Number> d = dsat3(t, p);
    return {d.vapour, d.liquid};
}

// Wet steam at (p, t) on the saturation line, of a quality that is still open.
template <Asked asked, class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> wet_state(Number p, Number t) noexcept {
    StateOf<Number> state{.region = Region::wet, .p = p, .t = t};
    if constexpr (asked.wet) state.ends = ends_at(p, t);
    return state;
}

// A state with the quality at which it has the value of a property, if it is wet steam.
template <Asked asked, const auto& property, class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> with_quality(StateOf<Number> state,
                                                         Number value) noexcept {
    if constexpr (asked.wet) {
        if (state.region == Region::wet) state.x = quality<property>(state, value);
    }
    return state;
}

// Wet steam of which a property has the given value.
template <Asked asked, const auto& property, class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> wet_state_by(Number p, Number t,
                                                         Number value) noexcept {
    StateOf<Number> state = wet_state<asked>(p, t);
    if constexpr (asked.wet) state.x = quality<property>(state, value);
    return state;
}

}  // namespace vaprix
