// SPDX-License-Identifier: MIT
//
// A number of several lanes, each IEEE 754 binary64, that one instruction treats alike: every lane
// has the bits that a double would have. Include it before the equations, whose templates call the
// functions below.
#pragma once

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "frame/inline.hpp"
#include "frame/machine.hpp"

namespace vaprix {

// Integers of the lanes: their bits.
template <int lanes>
struct Bits {
    typedef std::uint64_t Vector __attribute__((vector_size(lanes * sizeof(std::uint64_t))));
    Vector v;

    friend VAPRIX_INLINE Bits operator+(Bits a, Bits b) noexcept { return {a.v + b.v}; }
    friend VAPRIX_INLINE Bits operator-(Bits a, Bits b) noexcept { return {a.v - b.v}; }
    friend VAPRIX_INLINE Bits operator+(Bits a, std::uint64_t b) noexcept { return {a.v + b}; }
    friend VAPRIX_INLINE Bits operator-(Bits a, std::uint64_t b) noexcept { return {a.v - b}; }
    friend VAPRIX_INLINE Bits operator*(Bits a, std::uint64_t b) noexcept { return {a.v * b}; }
    friend VAPRIX_INLINE Bits operator~(Bits a) noexcept { return {~a.v}; }
    friend VAPRIX_INLINE Bits operator&(Bits a, Bits b) noexcept { return {a.v & b.v}; }
    friend VAPRIX_INLINE Bits operator|(Bits a, Bits b) noexcept { return {a.v | b.v}; }
    friend VAPRIX_INLINE Bits operator&(Bits a, std::uint64_t b) noexcept { return {a.v & b}; }
    friend VAPRIX_INLINE Bits operator|(Bits a, std::uint64_t b) noexcept { return {a.v | b}; }
    friend VAPRIX_INLINE Bits operator<<(Bits a, int b) noexcept { return {a.v << b}; }
    friend VAPRIX_INLINE Bits operator>>(Bits a, int b) noexcept { return {a.v >> b}; }
};

// A truth of each lane.
template <int lanes>
struct Mask {
    typedef std::int64_t Vector __attribute__((vector_size(lanes * sizeof(std::int64_t))));
    Vector v;  // -1 or 0

    friend VAPRIX_INLINE Mask operator&(Mask a, Mask b) noexcept { return {a.v & b.v}; }
    friend VAPRIX_INLINE Mask operator|(Mask a, Mask b) noexcept { return {a.v | b.v}; }
    friend VAPRIX_INLINE Mask operator!(Mask a) noexcept { return {~a.v}; }
};

#if defined(__AVX512DQ__)
template <>
struct Mask<8> {
    __mmask8 v;  // a bit of each lane

    friend VAPRIX_INLINE Mask operator&(Mask a, Mask b) noexcept { return {_kand_mask8(a.v, b.v)}; }
    friend VAPRIX_INLINE Mask operator|(Mask a, Mask b) noexcept { return {_kor_mask8(a.v, b.v)}; }
    friend VAPRIX_INLINE Mask operator!(Mask a) noexcept { return {_knot_mask8(a.v)}; }
};
#endif

enum class Comparison { less, greater, not_greater, not_less, equal, not_equal };

template <int lanes>
struct Pack;
template <Comparison comparison, int lanes>
VAPRIX_INLINE Mask<lanes> compare(Pack<lanes> a, Pack<lanes> b) noexcept;

template <int lanes_>
struct Pack {
    static constexpr int lanes = lanes_;
    // with eight lanes an operand is repeated as it is read
    static constexpr bool constants_in_memory = lanes < 8;
    typedef double Vector __attribute__((vector_size(lanes * sizeof(double))));
    Vector v;

    Pack() = default;
    VAPRIX_INLINE constexpr explicit Pack(Vector of) noexcept : v(of) {}
    template <class Real>
    requires std::is_arithmetic_v<Real> VAPRIX_INLINE constexpr Pack(Real x) noexcept
        : v(repeated(static_cast<double>(x), std::make_index_sequence<lanes>{})) {}

    static VAPRIX_INLINE Pack load(const double* from) noexcept {
        Pack pack;
        __builtin_memcpy(&pack.v, from, sizeof pack.v);
        return pack;
    }
    VAPRIX_INLINE void store(double* to) const noexcept { __builtin_memcpy(to, &v, sizeof v); }

    friend VAPRIX_INLINE Pack operator+(Pack a, Pack b) noexcept { return Pack(a.v + b.v); }
    friend VAPRIX_INLINE Pack operator-(Pack a, Pack b) noexcept { return Pack(a.v - b.v); }
    friend VAPRIX_INLINE Pack operator*(Pack a, Pack b) noexcept { return Pack(a.v * b.v); }
    friend VAPRIX_INLINE Pack operator/(Pack a, Pack b) noexcept { return Pack(a.v / b.v); }
    friend VAPRIX_INLINE Pack operator-(Pack a) noexcept { return Pack(-a.v); }
    VAPRIX_INLINE Pack& operator+=(Pack b) noexcept { return *this = *this + b; }
    VAPRIX_INLINE Pack& operator-=(Pack b) noexcept { return *this = *this - b; }
    VAPRIX_INLINE Pack& operator*=(Pack b) noexcept { return *this = *this * b; }

    friend VAPRIX_INLINE Mask<lanes> operator<(Pack a, Pack b) noexcept {
        return compare<Comparison::less>(a, b);
    }
    friend VAPRIX_INLINE Mask<lanes> operator>(Pack a, Pack b) noexcept {
        return compare<Comparison::greater>(a, b);
    }
    friend VAPRIX_INLINE Mask<lanes> operator<=(Pack a, Pack b) noexcept {
        return compare<Comparison::not_greater>(a, b);
    }
    friend VAPRIX_INLINE Mask<lanes> operator>=(Pack a, Pack b) noexcept {
        return compare<Comparison::not_less>(a, b);
    }
    friend VAPRIX_INLINE Mask<lanes> operator==(Pack a, Pack b) noexcept {
        return compare<Comparison::equal>(a, b);
    }
    friend VAPRIX_INLINE Mask<lanes> operator!=(Pack a, Pack b) noexcept {
        return compare<Comparison::not_equal>(a, b);
    }

private:
    template <std::size_t... lane>
    static VAPRIX_INLINE constexpr Vector repeated(double x,
                                                   std::index_sequence<lane...>) noexcept {
        return Vector{(static_cast<void>(lane), x)...};
    }
};

// By instructions of their own where there are: what g++ 12 makes of vectors' operators tests the lanes
// of a mask again.
template <Comparison comparison, int lanes>
VAPRIX_INLINE Mask<lanes> compare(Pack<lanes> a, Pack<lanes> b) noexcept {
    using enum Comparison;
#if defined(__AVX__)
    constexpr int predicates[] = {_CMP_LT_OS, _CMP_GT_OS, _CMP_LE_OS,
                                  _CMP_GE_OS, _CMP_EQ_OQ, _CMP_NEQ_UQ};
    constexpr int predicate = predicates[static_cast<int>(comparison)];
#if defined(__AVX512DQ__)
    if constexpr (lanes == 8) return {_mm512_cmp_pd_mask(a.v, b.v, predicate)};
#endif
    if constexpr (lanes == 4)
        return {reinterpret_cast<Mask<4>::Vector>(_mm256_cmp_pd(a.v, b.v, predicate))};
#elif defined(__x86_64__)
    const auto mask = [](__m128d of) noexcept {
        return Mask<2>{reinterpret_cast<Mask<2>::Vector>(of)};
    };
    if constexpr (comparison == less) return mask(_mm_cmplt_pd(a.v, b.v));
    if constexpr (comparison == greater) return mask(_mm_cmpgt_pd(a.v, b.v));
    if constexpr (comparison == not_greater) return mask(_mm_cmple_pd(a.v, b.v));
    if constexpr (comparison == not_less) return mask(_mm_cmpge_pd(a.v, b.v));
    if constexpr (comparison == equal) return mask(_mm_cmpeq_pd(a.v, b.v));
    if constexpr (comparison == not_equal) return mask(_mm_cmpneq_pd(a.v, b.v));
#else
    if constexpr (comparison == less) return {a.v < b.v};
    if constexpr (comparison == greater) return {a.v > b.v};
    if constexpr (comparison == not_greater) return {a.v <= b.v};
    if constexpr (comparison == not_less) return {a.v >= b.v};
    if constexpr (comparison == equal) return {a.v == b.v};
    if constexpr (comparison == not_equal) return {a.v != b.v};
#endif
}

namespace machine {

template <int lanes>
VAPRIX_INLINE Bits<lanes> bits(Pack<lanes> x) noexcept {
    return {reinterpret_cast<typename Bits<lanes>::Vector>(x.v)};
}
template <int lanes>
VAPRIX_INLINE Pack<lanes> number(Bits<lanes> x) noexcept {
    return Pack<lanes>(reinterpret_cast<typename Pack<lanes>::Vector>(x.v));
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> select(Mask<lanes> where, Pack<lanes> yes,
                                 std::type_identity_t<Pack<lanes>> no) noexcept {
#if defined(__AVX__)
#if defined(__AVX512DQ__)
    if constexpr (lanes == 8) return Pack<lanes>(_mm512_mask_blend_pd(where.v, no.v, yes.v));
#endif
    if constexpr (lanes == 4)
        return Pack<lanes>(_mm256_blendv_pd(no.v, yes.v, reinterpret_cast<__m256d>(where.v)));
#else
    const Bits<lanes> chosen{reinterpret_cast<typename Bits<lanes>::Vector>(where.v)};
    return number((chosen & bits(yes)) | (~chosen & bits(no)));
#endif
}

// A bit of each lane, the first the lowest.
template <int lanes>
VAPRIX_INLINE unsigned truths(Mask<lanes> mask) noexcept {
#if defined(__x86_64__)
    if constexpr (lanes == 2) {
        return static_cast<unsigned>(_mm_movemask_pd(reinterpret_cast<__m128d>(mask.v)));
    }
#if defined(__AVX__)
    if constexpr (lanes == 4) {
        return static_cast<unsigned>(_mm256_movemask_pd(reinterpret_cast<__m256d>(mask.v)));
    }
#endif
#if defined(__AVX512DQ__)
    if constexpr (lanes == 8) return _cvtmask8_u32(mask.v);
#endif
#else
    unsigned truths = 0;
    for (int lane = 0; lane < lanes; ++lane) truths |= (mask.v[lane] != 0 ? 1U : 0U) << lane;
    return truths;
#endif
}
template <int lanes>
VAPRIX_INLINE bool none(Mask<lanes> mask) noexcept {
    return truths(mask) == 0;
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> sqrt(Pack<lanes> x) noexcept {
    Pack<lanes> root;
#if defined(__x86_64__)
    if constexpr (lanes == 2) root.v = _mm_sqrt_pd(x.v);
#if defined(__AVX__)
    if constexpr (lanes == 4) root.v = _mm256_sqrt_pd(x.v);
#endif
#if defined(__AVX512F__)
    if constexpr (lanes == 8) root.v = _mm512_sqrt_pd(x.v);
#endif
#else
    for (int lane = 0; lane < lanes; ++lane) root.v[lane] = __builtin_sqrt(x.v[lane]);
#endif
    return root;
}

inline constexpr std::uint64_t sign = 0x8000'0000'0000'0000;
template <int lanes>
VAPRIX_INLINE bool positive_and_normal(Pack<lanes> x) noexcept {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return none(!((x >= Pack<lanes>(0x1p-1022)) & (x < Pack<lanes>(infinity))));
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> fabs(Pack<lanes> x) noexcept {
    return number(bits(x) & ~sign);
}
template <int lanes>
VAPRIX_INLINE Pack<lanes> copysign(Pack<lanes> x, Pack<lanes> y) noexcept {
    return number((bits(x) & ~sign) | (bits(y) & sign));
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> in_single(Pack<lanes> x) noexcept {
    typedef float Singles __attribute__((vector_size(lanes * sizeof(float))));
    return Pack<lanes>(__builtin_convertvector(__builtin_convertvector(x.v, Singles),
                                               typename Pack<lanes>::Vector));
}

// The integer nearest to a number between 0 and 2^31.
template <int lanes>
VAPRIX_INLINE Bits<lanes> rounded(Pack<lanes> x) noexcept {
    return bits(x + 0x1p52) & 0xffff'ffffu;
}

template <int lanes>
VAPRIX_INLINE Pack<lanes> entry(const double* table, Bits<lanes> index) noexcept {
#if defined(__AVX512F__)
    if constexpr (lanes == 8) {
        return Pack<lanes>(_mm512_i64gather_pd(reinterpret_cast<__m512i>(index.v), table, 8));
    }
#endif
#if defined(__AVX2__)
    if constexpr (lanes == 4) {
        return Pack<lanes>(_mm256_i64gather_pd(table, reinterpret_cast<__m256i>(index.v), 8));
    }
#endif
    Pack<lanes> entries;
    for (int lane = 0; lane < lanes; ++lane) entries.v[lane] = table[index.v[lane]];
    return entries;
}
// The signed integer in the lower half of each lane: with the sign bit turned it is one without a sign,
// which counts the units of 2^52's last place, so that 2^52 + 2^31 + i is put together, not rounded. Of
// 16 bits it is the upper ones.
template <std::uint64_t of = 0xffff'ffff, int lanes>
VAPRIX_INLINE Pack<lanes> signed_lower_half(Bits<lanes> x) noexcept {
    constexpr std::uint64_t turned = std::bit_cast<std::uint64_t>(0x1p52) | 0x8000'0000;
    return number(Bits<lanes>{(x & of).v ^ turned}) - (0x1p52 + 0x1p31);
}

template <int lanes>
VAPRIX_INLINE Neighbours<Pack<lanes>> entries(const float* table, Bits<lanes> index) noexcept {
#if defined(__AVX512F__)
    if constexpr (lanes == 8) {
        const __m512i both =
            _mm512_i64gather_epi64(reinterpret_cast<__m512i>(index.v), table, sizeof *table);
        const auto widened = [](__m512i lower) noexcept {
            return Pack<lanes>(_mm512_cvtps_pd(_mm256_castsi256_ps(_mm512_cvtepi64_epi32(lower))));
        };
        return {widened(both), widened(_mm512_srli_epi64(both, 32))};
    }
#endif
    // loaded as pairs: gathering costs twice that
    typedef float Singles __attribute__((vector_size(2 * sizeof(float))));
    typedef double Two __attribute__((vector_size(2 * sizeof(double))));
    const auto pair = [&](int lane) noexcept {
        Singles two;
        __builtin_memcpy(&two, table + index.v[lane], sizeof two);
        return __builtin_convertvector(two, Two);
    };
    const auto sorted = [&]<int... lane>(std::integer_sequence<int, lane...>) noexcept {
        using Vector = typename Pack<lanes>::Vector;
        const Two pairs[] = {pair(lane)...};
        return Neighbours<Pack<lanes>>{Pack<lanes>(Vector{pairs[lane][0]...}),
                                       Pack<lanes>(Vector{pairs[lane][1]...})};
    };
    return sorted(std::make_integer_sequence<int, lanes>{});
}

// A word of each lane, from an index of words.
template <int lanes>
VAPRIX_INLINE Bits<lanes> word_at(const void* table, Bits<lanes> index) noexcept {
    Bits<lanes> word;
#if defined(__AVX512F__)
    if constexpr (lanes == 8) {
        word.v = reinterpret_cast<Bits<8>::Vector>(
            _mm512_i64gather_epi64(reinterpret_cast<__m512i>(index.v), table, sizeof word.v[0]));
        return word;
    }
#endif
    for (int lane = 0; lane < lanes; ++lane) {
        std::uint64_t one;
        __builtin_memcpy(&one, static_cast<const char*>(table) + index.v[lane] * sizeof one,
                         sizeof one);
        word.v[lane] = one;
    }
    return word;
}
// The next four of them: four lanes load theirs at once, and transpose them.
template <int lanes>
VAPRIX_INLINE std::array<Bits<lanes>, 4> four_words_at(const void* table,
                                                       Bits<lanes> index) noexcept {
    if constexpr (lanes == 4) {
        const auto four = [&](int lane) noexcept {
            Bits<4>::Vector words;
            __builtin_memcpy(
                &words, static_cast<const char*>(table) + index.v[lane] * sizeof(std::uint64_t),
                sizeof words);
            return words;
        };
        const auto a = four(0), b = four(1), c = four(2), d = four(3);
        const auto even_ab = __builtin_shufflevector(a, b, 0, 4, 2, 6);
        const auto odd_ab = __builtin_shufflevector(a, b, 1, 5, 3, 7);
        const auto even_cd = __builtin_shufflevector(c, d, 0, 4, 2, 6);
        const auto odd_cd = __builtin_shufflevector(c, d, 1, 5, 3, 7);
        return {{{__builtin_shufflevector(even_ab, even_cd, 0, 1, 4, 5)},
                 {__builtin_shufflevector(odd_ab, odd_cd, 0, 1, 4, 5)},
                 {__builtin_shufflevector(even_ab, even_cd, 2, 3, 6, 7)},
                 {__builtin_shufflevector(odd_ab, odd_cd, 2, 3, 6, 7)}}};
    } else {
        return {word_at(table, index), word_at(table, index + 1), word_at(table, index + 2),
                word_at(table, index + 3)};
    }
}

// Two words of each lane hold four integers of 32 bits, one holds four of 16.
template <std::size_t wide, std::size_t narrow, int lanes>
class QuadsOfLanes {
    static constexpr std::size_t size = 2 * wide + narrow;
    std::array<Bits<lanes>, size> words;

public:
    VAPRIX_INLINE QuadsOfLanes(const QuadRow<wide, narrow>* rows, Bits<lanes> index) noexcept {
        static_assert(sizeof *rows == size * sizeof(std::uint64_t) && size % 4 == 0);
        for (std::size_t from = 0; from < size; from += 4) {
            const auto four = four_words_at(rows, index * size + from);
            for (std::size_t k = 0; k < 4; ++k) words[from + k] = four[k];
        }
    }
    VAPRIX_INLINE Quad<Pack<lanes>> operator[](std::size_t k) const noexcept {
        if (k < wide) {
            const Bits<lanes> first = words[2 * k], second = words[2 * k + 1];
            return {{signed_lower_half(first), signed_lower_half(first >> 32)},
                    {signed_lower_half(second), signed_lower_half(second >> 32)}};
        }
        constexpr std::uint64_t upper = 0xffff'0000;
        const Bits<lanes> four = words[wide + k];
        return {{signed_lower_half<upper>(four << 16), signed_lower_half<upper>(four)},
                {signed_lower_half<upper>(four >> 16), signed_lower_half<upper>(four >> 32)}};
    }
};
template <std::size_t wide, std::size_t narrow, int lanes>
VAPRIX_INLINE QuadsOfLanes<wide, narrow, lanes> quads_at(const QuadRow<wide, narrow>* rows,
                                                         Bits<lanes> index) noexcept {
    return {rows, index};
}

}  // namespace machine
}  // namespace vaprix
