// SPDX-License-Identifier: MIT
#pragma once

#include "frame/machine.hpp"
#include "frame/tables/elementary.hpp"

namespace vaprix {

// exp of x plus what belongs to it beyond its rounding; |x| <= 700, nothing is checked.
//
// x = k ln(2)/64 + r: exp x = 2^(k/64) + 2^(k/64) (exp r - 1), the second term below 0.6 % of the
// first. The table holds 2^(j/64) of the six lower bits of k; the upper ones go to the exponent.
template <class Number, class... Low>
[[nodiscard]] VAPRIX_INLINE Number exponential(Number x, Low... low) noexcept {
    using namespace tables::elementary;
    constexpr double to_integer = 0x1.8p52;  // the sum's lower bits are a rounded integer
    const Number shifted = x * exp_per_ln2 + to_integer;
    const Number k = shifted - to_integer;
    const auto k_bits = machine::bits(shifted);
    const auto j = k_bits & 63;
    const Number power =
        machine::number(machine::bits(machine::entry(exp_root, j)) + ((k_bits - j) << 46));
    const Number r = (((x - k * exp_ln2_high) - k * exp_ln2_low) + ... + low);
    const Number r2 = r * r;
    const Number power_r2 = power * r2;
    return power + ((power * (machine::entry(exp_root_low, j) + r) +
                     power_r2 * (exp_series[0] + exp_series[1] * r)) +
                    (power_r2 * r2) * (exp_series[2] + exp_series[3] * r));
}

}  // namespace vaprix
