// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

#include "frame/machine.hpp"
#include "frame/tables/elementary.hpp"

namespace vaprix {

// A number as the sum of two, the second small.
template <class Number>
struct Sum {
    Number high, low;
};

// ln x to 70 bits; x > 0, subnormal or not, nothing is checked. Of infinity the first is infinite.
//
// x = 2^k z, z about 1: ln x = k ln 2 - ln c + ln(1 + r) with r = c z - 1, c near 1/z from the table.
// The upper half of z times c is exact, as is its sum with the first parts of k ln 2 and -ln c.
template <class Number>
[[nodiscard]] VAPRIX_INLINE Sum<Number> log_in_two(Number x) noexcept {
    using namespace tables::elementary;
    constexpr std::uint64_t one = 0x3ff0'0000'0000'0000, two52 = 0x4330'0000'0000'0000;
    constexpr std::uint64_t fraction = 0x000f'ffff'ffff'ffff, lower = 0x3f'ffff;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Number bias = 0x1p52 + 1023;
    if (!machine::positive_and_normal(x)) {
        const auto subnormal = x < 0x1p-1022;
        const auto infinite = x == infinity;
        x = machine::select(subnormal, 0x1p54 * x, x);
        bias = machine::select(subnormal, bias + 54, bias);
        bias = machine::select(infinite, bias - infinity, bias);
    }
    const auto from_start = machine::bits(x) - log_start + one;
    const Number k = machine::number((from_start >> 52) | two52) - bias;
    const auto j = (from_start >> 45) & 127;
    const auto z_bits = (from_start & fraction) + log_start;
    const Number z = machine::number(z_bits);
    const Number upper = machine::number(z_bits & ~lower);
    const Number c = machine::entry(log_c, j);
    const Number r_high = c * upper - 1;
    const Number r_low = c * (z - upper);
    const Number r = r_high + r_low;
    const Number r2 = r * r;
    const Number series =
        r2 *
        ((log_series[0] + log_series[1] * r) +
         r2 * ((log_series[2] + log_series[3] * r) + r2 * (log_series[4] + log_series[5] * r)));
    return {(k * log_ln2_high + machine::entry(log_high, j)) + r_high,
            ((k * log_ln2_low + machine::entry(log_low, j)) + r_low) + series};
}

template <class Number>
[[nodiscard]] VAPRIX_INLINE Number logarithm(Number x) noexcept {
    const Sum<Number> sum = log_in_two(x);
    return sum.high + sum.low;
}

}  // namespace vaprix
