// SPDX-License-Identifier: MIT
#pragma once

#include "frame/machine.hpp"
#include "frame/tables/elementary.hpp"

namespace vaprix {

// x^(-3/5), off by 2.6 ulp at most; x positive and normal, nothing is checked.
//
// x = 2^k z, z about 1 and r = c z - 1 as of the logarithm, k = 5 m + i: x^(-3/5) = 2^(-3m)
// 2^(-3i/5) c^(3/5) (1 + r)^(-3/5).
template <class Number>
[[nodiscard]] VAPRIX_INLINE Number inverse_three_fifths(Number x) noexcept {
    using namespace tables::elementary;
    constexpr std::uint64_t one = 0x3ff0'0000'0000'0000, fraction = 0x000f'ffff'ffff'ffff;
    constexpr std::uint64_t fifth_of_bias = 205;  // of 1023 + 2
    const auto from_start = machine::bits(x) - log_start + one;
    const auto j = (from_start >> 45) & 127;
    const auto exponent = (from_start >> 52) + 2;
    const auto fifth = (exponent * 52429) >> 18;  // exponent/5, rounded down
    const auto i = exponent - fifth * 5;
    const Number front =
        machine::entry(three_fifths_of_c, j) * machine::entry(three_fifths_of_half, i);
    const Number scaled =
        machine::number(machine::bits(front) - (fifth * 3 << 52) + (3 * fifth_of_bias << 52));
    const Number z = machine::number((from_start & fraction) + log_start);
    const Number r = machine::entry(log_c, j) * z - 1;
    const Number r2 = r * r;
    const auto& a = three_fifths_series;
    return scaled +
           scaled * (r * ((a[0] + a[1] * r) + r2 * ((a[2] + a[3] * r) + r2 * (a[4] + a[5] * r))));
}

}  // namespace vaprix
