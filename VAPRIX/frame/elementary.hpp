// SPDX-License-Identifier: MIT
//
// The elementary functions of a number. The equations are templates over the number that they are
// evaluated with. Our own functions serve every number with the format of a double, with the same
// bits on every machine; another kind of number takes part by its own
// Elementary<Number> and RealPowers<Number>.
#pragma once

#include <type_traits>

#include "frame/cube_root.hpp"
#include "frame/exponential.hpp"
#include "frame/inline.hpp"
#include "frame/logarithm.hpp"
#include "frame/machine.hpp"
#include "frame/real_power.hpp"
#include "frame/three_fifths.hpp"

namespace vaprix {

template <class Number>
struct Elementary {
    static Number fabs(Number x) noexcept { return machine::fabs(x); }
    static Number copysign(Number x, Number y) noexcept { return machine::copysign(x, y); }
    static Number sqrt(Number x) noexcept { return machine::sqrt(x); }
    static Number cbrt(Number x) noexcept { return cube_root(x); }
    static Number exp(Number x) noexcept { return exponential(x); }
    static Number log(Number x) noexcept { return logarithm(x); }
    static Number to_minus_three_fifths(Number x) noexcept { return inverse_three_fifths(x); }
};

template <class Number>
VAPRIX_INLINE Number fabs(Number x) noexcept {
    return Elementary<Number>::fabs(x);
}

template <class Number>
VAPRIX_INLINE Number copysign(Number x, std::type_identity_t<Number> y) noexcept {
    return Elementary<Number>::copysign(x, y);
}

template <class Number>
VAPRIX_INLINE Number sqrt(Number x) noexcept {
    return Elementary<Number>::sqrt(x);
}

template <class Number>
VAPRIX_INLINE Number cbrt(Number x) noexcept {
    return Elementary<Number>::cbrt(x);
}

template <class Number>
VAPRIX_INLINE Number exp(Number x) noexcept {
    return Elementary<Number>::exp(x);
}

template <class Number>
VAPRIX_INLINE Number log(Number x) noexcept {
    return Elementary<Number>::log(x);
}

template <class Number>
VAPRIX_INLINE Number pow(Number x, std::type_identity_t<Number> y) noexcept {
    return RealPowers<Number>(x).to(y);
}

// The same of two arguments side by side; two doubles are evaluated as one.
template <class Number>
VAPRIX_INLINE machine::Neighbours<Number> exp(machine::Neighbours<Number> x) noexcept {
    if constexpr (std::is_same_v<Number, double>) {
        return exponential(x);
    } else {
        return {exp(x.first()), exp(x.second())};
    }
}

}  // namespace vaprix
