// SPDX-License-Identifier: MIT
//
// What processors do to a number, IEEE 754 binary64, in an instruction or two: the ground that the
// elementary functions stand on. A number that holds several brings the same functions.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "frame/inline.hpp"

namespace vaprix::machine {

VAPRIX_INLINE double fabs(double x) noexcept { return std::fabs(x); }
VAPRIX_INLINE double sqrt(double x) noexcept { return std::sqrt(x); }
// the compiler's: MinGW's std::copysign takes the numbers apart as integers
VAPRIX_INLINE double copysign(double x, double y) noexcept { return __builtin_copysign(x, y); }

// What a comparison of two numbers is.
template <class Number>
using Truth = decltype(std::declval<Number>() < std::declval<Number>());

// Where the condition holds the first, elsewhere the second.
template <class Number>
VAPRIX_INLINE Number select(bool condition, Number yes, std::type_identity_t<Number> no) noexcept {
    return condition ? yes : no;
}

// Sign, exponent and fraction.
VAPRIX_INLINE std::uint64_t bits(double x) noexcept { return std::bit_cast<std::uint64_t>(x); }
VAPRIX_INLINE double number(std::uint64_t bits) noexcept { return std::bit_cast<double>(bits); }

// Rounded to single precision.
VAPRIX_INLINE double in_single(double x) noexcept {
    return static_cast<double>(static_cast<float>(x));
}

// Whether the condition holds in no lane.
VAPRIX_INLINE bool none(bool condition) noexcept { return !condition; }

// Whether the number is, in every lane.
VAPRIX_INLINE bool positive_and_normal(double x) noexcept {
    constexpr std::uint64_t least = 0x0010'0000'0000'0000, infinity = 0x7ff0'0000'0000'0000;
    return bits(x) - least < infinity - least;
}

// Of a table, the entry of an index.
VAPRIX_INLINE double entry(const double* table, std::uint64_t index) noexcept {
    return table[index];
}

}  // namespace vaprix::machine
