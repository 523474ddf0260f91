// SPDX-License-Identifier: MIT
//
// What processors do to a number, IEEE 754 binary64, in an instruction or two: the ground that the
// elementary functions stand on. A number that holds several brings the same functions.
#pragma once

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// Two numbers side by side.
template <class Number>
class Neighbours {
    Number first_, second_;

public:
    VAPRIX_INLINE Neighbours(Number first, Number second) noexcept
        : first_(first), second_(second) {}
    [[nodiscard]] VAPRIX_INLINE Number first() const noexcept { return first_; }
    [[nodiscard]] VAPRIX_INLINE Number second() const noexcept { return second_; }

    friend VAPRIX_INLINE Neighbours operator+(Neighbours a, Neighbours b) noexcept {
        return {a.first_ + b.first_, a.second_ + b.second_};
    }
    friend VAPRIX_INLINE Neighbours operator-(Neighbours a, Neighbours b) noexcept {
        return {a.first_ - b.first_, a.second_ - b.second_};
    }
    friend VAPRIX_INLINE Neighbours operator*(Neighbours a, Neighbours b) noexcept {
        return {a.first_ * b.first_, a.second_ * b.second_};
    }
    friend VAPRIX_INLINE Neighbours operator*(Neighbours a, Number b) noexcept {
        return {a.first_ * b, a.second_ * b};
    }
};

// The same in one register.
template <>
class Neighbours<double> {
    using Two __attribute__((vector_size(2 * sizeof(double)))) = double;
    Two two;
    VAPRIX_INLINE explicit Neighbours(Two both) noexcept : two(both) {}

public:
    using Bits __attribute__((vector_size(2 * sizeof(std::uint64_t)))) = std::uint64_t;

    VAPRIX_INLINE Neighbours(double first, double second) noexcept : two{first, second} {}
    VAPRIX_INLINE Neighbours(double both) noexcept : Neighbours(both, both) {}
    VAPRIX_INLINE explicit Neighbours(Bits both) noexcept : two(reinterpret_cast<Two>(both)) {}
    template <class Entry>
    VAPRIX_INLINE explicit Neighbours(const Entry* table) noexcept {
        // g++ 12 gives an alias of a dependent type no such attribute
        // NOLINTNEXTLINE(modernize-use-using)
        typedef Entry Entries __attribute__((vector_size(2 * sizeof(Entry))));
        Entries entries;
        __builtin_memcpy(&entries, table, sizeof entries);
        two = __builtin_convertvector(entries, Two);
    }
#if defined(__SSE2__)
    VAPRIX_INLINE explicit Neighbours(__m128i integers) noexcept
        : two(_mm_cvtepi32_pd(integers)) {}  // which g++ 12 takes one by one
#endif
    [[nodiscard]] VAPRIX_INLINE double first() const noexcept { return two[0]; }
    [[nodiscard]] VAPRIX_INLINE double second() const noexcept { return two[1]; }
    [[nodiscard]] VAPRIX_INLINE Bits bits() const noexcept { return reinterpret_cast<Bits>(two); }

    friend VAPRIX_INLINE Neighbours operator+(Neighbours a, Neighbours b) noexcept {
        return Neighbours(a.two + b.two);
    }
    friend VAPRIX_INLINE Neighbours operator-(Neighbours a, Neighbours b) noexcept {
        return Neighbours(a.two - b.two);
    }
    friend VAPRIX_INLINE Neighbours operator*(Neighbours a, Neighbours b) noexcept {
        return Neighbours(a.two * b.two);
    }
};

VAPRIX_INLINE Neighbours<double>::Bits bits(Neighbours<double> x) noexcept { return x.bits(); }
VAPRIX_INLINE Neighbours<double> number(Neighbours<double>::Bits bits) noexcept {
    return Neighbours<double>(bits);
}
VAPRIX_INLINE Neighbours<double> entry(const double* table,
                                       Neighbours<double>::Bits index) noexcept {
    return {table[index[0]], table[index[1]]};
}

// Two neighbouring entries of a table, from an even or an odd index.
template <class Entry>
VAPRIX_INLINE Neighbours<double> entries(const Entry* table, std::uint64_t index) noexcept {
    return Neighbours<double>(table + index);
}

// A row of a table of integers, by fours: those of 32 bits, then those of 16.
template <std::size_t wide, std::size_t narrow>
struct alignas(16) QuadRow {
    std::int32_t of_32[4 * wide];
    std::int16_t of_16[4 * narrow];
};

// Four numbers as two pairs.
template <class Number>
struct Quad {
    Neighbours<Number> first, second;
};

// What a number of 16 bits is multiplied by when it is read: they are the upper ones of 32.
inline constexpr double narrow_factor = 0x1p16;

template <std::size_t wide, std::size_t narrow>
class Quads {
    const QuadRow<wide, narrow>& row;

public:
    VAPRIX_INLINE explicit Quads(const QuadRow<wide, narrow>& of) noexcept : row(of) {}
    VAPRIX_INLINE Quad<double> operator[](std::size_t k) const noexcept {
#if defined(__SSE2__)
        const auto pairs = [](__m128i four) noexcept {
            return Quad<double>{Neighbours<double>(four),
                                Neighbours<double>(_mm_unpackhi_epi64(four, four))};
        };
        if (k < wide) {
            return {Neighbours<double>(
                        _mm_loadl_epi64(reinterpret_cast<const __m128i*>(row.of_32 + 4 * k))),
                    Neighbours<double>(
                        _mm_loadl_epi64(reinterpret_cast<const __m128i*>(row.of_32 + 4 * k + 2)))};
        }
        const auto* four = reinterpret_cast<const __m128i*>(row.of_16 + 4 * (k - wide));
        return pairs(_mm_unpacklo_epi16(_mm_setzero_si128(), _mm_loadl_epi64(four)));
#else
        const auto pairs = [](const auto* four) noexcept {
            return Quad<double>{Neighbours<double>(four), Neighbours<double>(four + 2)};
        };
        if (k < wide) return pairs(row.of_32 + 4 * k);
        const auto [first, second] = pairs(row.of_16 + 4 * (k - wide));
        return {first * narrow_factor, second * narrow_factor};
#endif
    }
};
template <std::size_t wide, std::size_t narrow>
VAPRIX_INLINE Quads<wide, narrow> quads_at(const QuadRow<wide, narrow>* rows,
                                           std::uint64_t index) noexcept {
    return Quads<wide, narrow>(rows[index]);
}

// The integer nearest to a number between 0 and 2^31.
VAPRIX_INLINE std::uint64_t rounded(double x) noexcept { return bits(x + 0x1p52) & 0xffff'ffffu; }

}  // namespace vaprix::machine
