// SPDX-License-Identifier: MIT
//
// From a state to the result of an export: the property where the state has it, else what the
// answer rule of the export says. The rules are the table in rules.csv.
#pragma once

#include <cmath>
#include <limits>

#include "frame/error_code.hpp"
#include "state/properties.hpp"

namespace vaprix {

// What an export answers of wet steam, and of (p, T) on the saturation line.
enum class OfWet {
    refused,  // the value and the code of the rule
    mixed,    // the property by the lever rule
    liquid,   // that of the saturated liquid, and the code 0 is stored
    ends,     // that of a saturated phase within 1e-6 of its end of the tie line, else refused
};

struct Refusal {
    double value = failed;
    ErrorCode code = no_code;  // none is stored
    bool scaled = false;       // the value has the factor of the property's unit
};

// A temperature, K, beyond which a correlation is refused.
inline constexpr double unlimited = std::numeric_limits<double>::infinity();
struct Limit {
    double t = unlimited;
    Refusal refusal{};
};

struct Answers {
    bool of_any = false;           // the property has a value for no state, too
    Refusal outside{};             // no state
    bool own_code = false;         // with the code of the resolver
    ErrorCode nan_code = no_code;  // of a temperature that is no number, if any
    OfWet of_wet = OfWet::refused;
    Refusal wet{};
    bool only_wet = false;  // a single phase is refused, without a code
    Limit above{};
    Limit above_too{};  // the lower one, tested second
    Limit below{.t = 0};
    Refusal undefined{};           // further arguments out of range
    bool undefined_first = false;  // they are tested before the state
    bool stores_zero = false;      // an answer stores the code 0
};

// What an export asks of its resolver: the coexisting phases only where its rule answers for them.
template <const Answers& rule, const auto& property>
inline constexpr Asked asked = [] {
    Asked all = property.asked;
    if (rule.of_wet == OfWet::refused) all.wet = false;
    if (rule.of_wet == OfWet::liquid || rule.of_wet == OfWet::ends) all.wet = true;
    return all;
}();

template <const auto& property>
[[nodiscard]] VAPRIX_INLINE double refuse(const Refusal& refusal) noexcept {
    if (refusal.code != no_code) store(refusal.code);
    if constexpr (requires { property.factor; }) {
        if (refusal.scaled) return refusal.value * property.factor;
    }
    return refusal.value;
}

// The result of an export; `more` are the arguments that the property takes beside the state.
template <const Answers& rule, const auto& property, class... More>
[[nodiscard]] VAPRIX_INLINE double answer(const State& state, More... more) noexcept {
    if constexpr (rule.of_any) return property.of(state);
    if constexpr (rule.undefined_first) {
        if (!property.defined(state, more...)) return refuse<property>(rule.undefined);
    }
    if (state.region == Region::none) {
        Refusal refusal = rule.outside;
        if (rule.own_code) refusal.code = state.refusal;
        if (rule.nan_code != no_code && std::isnan(state.t)) refusal.code = rule.nan_code;
        return refuse<property>(refusal);
    }
    if constexpr (rule.stores_zero) store(ErrorCode::success);
    if (state.region == Region::wet) {
        if constexpr (rule.of_wet == OfWet::mixed) return mixed<property>(state);
        if constexpr (rule.of_wet == OfWet::liquid) {
            store(ErrorCode::success);
            return single<property>(liquid_end(state));
        }
        if constexpr (rule.of_wet == OfWet::ends) {
            constexpr double end = 1e-6;  // of the tie line
            const double from_vapour = 1 - state.x;
            if (state.x >= 0 && state.x < end) return single<property>(liquid_end(state));
            if (from_vapour >= 0 && from_vapour < end) return single<property>(vapour_end(state));
        }
        return refuse<property>(rule.wet);
    }
    if constexpr (rule.only_wet) return failed;
    if constexpr (rule.above.t < unlimited) {
        if (state.t > rule.above.t) return refuse<property>(rule.above.refusal);
    }
    if constexpr (rule.above_too.t < unlimited) {
        if (state.t > rule.above_too.t) return refuse<property>(rule.above_too.refusal);
    }
    if constexpr (rule.below.t > 0) {
        if (!(state.t >= rule.below.t)) return refuse<property>(rule.below.refusal);
    }
    if constexpr (sizeof...(more) > 0) {
        if (!property.defined(state, more...)) return refuse<property>(rule.undefined);
        return property.of(state, more...);
    } else {
        return single<property>(state);
    }
}

}  // namespace vaprix
