// SPDX-License-Identifier: MIT
//
// Between the library's own states and those of the C++ interface. It stands beside the library's headers, which have a
// State, a Region and a Property of their own: vaprix.hpp must not be included here.
#pragma once

#include <limits>

#include "state/properties.hpp"
#include "vaprix/bridge.hpp"

namespace vaprix {
inline namespace v0 {
namespace bridge {

inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
// How v and d follow from the equation's volume.
enum Unformed : signed char { by_volume = 1, by_density = 2 };

inline constexpr signed char wet = 4, liquid = 1, vapour = 2;

[[nodiscard]] constexpr signed char number(Region region) noexcept {
    return region == Region::wet ? wet : static_cast<signed char>(region);
}

// No state. Some resolvers have no code of their own.
[[nodiscard]] inline Resolved none(ErrorCode why) noexcept {
    const ErrorCode code = why == no_code ? ErrorCode::outside_range : why;
    return {0, 0, 0, static_cast<int>(code), nan, nan, nan, nan, nan, {}};
}

// All but v and d.
[[nodiscard]] inline Resolved stored(const State& state) noexcept {
    const bool is_wet = state.region == Region::wet;
    Resolved at{number(state.region), 0, 0, 0, state.p, state.t, 0, 0, is_wet ? state.x : nan, {}};
    at.dense[0] = is_wet ? state.ends.vapour : state.d;
    at.dense[1] = is_wet ? state.ends.liquid : 0;
    return at;
}

// With v and d to be formed when they are asked for; those of region 3 are there, its density either as it was found or
// the reciprocal of the volume.
enum class Density3 { found, of_volume };

[[nodiscard]] inline Resolved with(Resolved at, const State& state, Unformed unformed,
                                   Density3 density) noexcept {
    at.unformed = unformed;
    if (state.region != Region::three) return at;
    at.unformed = 0;
    at.d = density == Density3::found ? state.d : 1 / state.v;
    at.v = unformed == by_density ? 1 / at.d : state.v;
    return at;
}

[[nodiscard]] inline Resolved resolved(const State& state, Unformed unformed,
                                       Density3 density = Density3::of_volume) noexcept {
    return state.region == Region::none ? none(state.refusal)
                                        : with(stored(state), state, unformed, density);
}

// Wet steam, or the mixture that a saturated phase is an end of.
[[nodiscard]] inline State wet_state_of(const Resolved& at) noexcept {
    return {.region = Region::wet,
            .p = at.p,
            .t = at.t,
            .d = at.d,
            .v = at.v,
            .x = at.x,
            .ends = {at.dense[0], at.dense[1]}};
}

[[nodiscard]] inline State state_of(const Resolved& at) noexcept {
    if (at.region == wet) return wet_state_of(at);
    const bool is_dense = at.region == number(Region::three);
    return {.region = static_cast<Region>(at.region),
            .p = at.p,
            .t = at.t,
            .d = is_dense ? at.dense[at.saturated == liquid ? 1 : 0] : at.d,
            .v = at.v,
            .x = at.x};
}

// v and d of a state that has them not formed.
VAPRIX_INLINE void form(Resolved& at) noexcept {
    if (at.unformed == 0) return;
    at.v = mixed<property::v>(state_of(at));
    at.d = 1 / at.v;
    if (at.unformed == by_density) at.v = 1 / at.d;
    at.unformed = 0;
}

}  // namespace bridge
}  // namespace v0
}  // namespace vaprix
