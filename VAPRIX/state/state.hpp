// SPDX-License-Identifier: MIT
//
// The state of water or steam: what every resolver returns and every property takes. Resolvers find
// it from a pair of variables; properties are evaluated on it.
#pragma once

#include <type_traits>

#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "frame/inline.hpp"
#include "frame/machine.hpp"

namespace vaprix {

// Regions of IAPWS R7-97(2012), Fig. 1, by the numbers of the formulation, with two of our own.
enum class Region : int {
    none = 0,  // outside the range of validity: no state
    one = 1,
    two = 2,
    three = 3,
    five = 5,
    wet = 9,  // wet steam; of (p, T): on the saturation line, where the quality is open
};

// What an export reads of its state. A resolver forms what is costly only if it is asked for.
struct Asked {
    bool p = false;        // the pressure
    bool t = false;        // the temperature
    bool single = false;   // the variables of the region's equation, in a single phase
    bool density = false;  // d and v in a single phase, in whatever region
    bool wet = false;      // the coexisting phases and, but for (p, T), the quality of wet steam
};

[[nodiscard]] constexpr Asked operator|(Asked a, Asked b) noexcept {
    return {a.p || b.p, a.t || b.t, a.single || b.single, a.density || b.density, a.wet || b.wet};
}

// Densities, kg/m3, of the coexisting phases of region 3, above 623.15 K; below, regions 1 and 2
// are evaluated at p and t.
template <class Number>
struct SaturatedEnds {
    Number vapour{};
    Number liquid{};
};

template <class Number>
struct StateOf {
    Region region = Region::none;
    Number p{};  // pressure, MPa
    Number t{};  // temperature, K
    Number d{};  // density, kg/m3: in region 3, elsewhere where asked for
    Number v{};  // specific volume, m3/kg: likewise
    Number x{};  // vapour quality of wet steam, kg of vapour per kg
    SaturatedEnds<Number> ends{};
    ErrorCode refusal = no_code;  // of no state: why
};
using State = StateOf<double>;

// No state, and the code that says why.
[[nodiscard]] VAPRIX_INLINE constexpr State refused(ErrorCode why) noexcept {
    return {.refusal = why};
}
inline constexpr State outside = refused(ErrorCode::outside_range);

// A state of region 1, 2 or 5.
template <class Number>
[[nodiscard]] VAPRIX_INLINE constexpr StateOf<Number> gibbs_state(Region region,
                                                                  std::type_identity_t<Number> p,
                                                                  Number t) noexcept {
    return {.region = region, .p = p, .t = t};
}

// A state of region 3 at the density d.
template <class Number>
[[nodiscard]] VAPRIX_INLINE constexpr StateOf<Number> dense_state(
    std::type_identity_t<Number> p, Number t, std::type_identity_t<Number> d) noexcept {
    return {.region = Region::three, .p = p, .t = t, .d = d, .v = 1 / d};
}

// Whether the phases of wet steam are of region 3: of several states at a time all or none.
template <class Number>
[[nodiscard]] VAPRIX_INLINE bool ends_are_dense(const StateOf<Number>& wet) noexcept {
    return !machine::none(wet.t > T_13);
}

// The saturated phases of wet steam.
template <class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> liquid_end(const StateOf<Number>& wet) noexcept {
    return ends_are_dense(wet) ? dense_state(wet.p, wet.t, wet.ends.liquid)
                               : gibbs_state(Region::one, wet.p, wet.t);
}
template <class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> vapour_end(const StateOf<Number>& wet) noexcept {
    return ends_are_dense(wet) ? dense_state(wet.p, wet.t, wet.ends.vapour)
                               : gibbs_state(Region::two, wet.p, wet.t);
}

}  // namespace vaprix
