// SPDX-License-Identifier: MIT
#pragma once

#include "frame/exponential.hpp"
#include "frame/logarithm.hpp"

namespace vaprix {

// The number with the lower half of its fraction cut off: the product of two such is exact.
template <class Number>
[[nodiscard]] VAPRIX_INLINE Number upper_half(Number x) noexcept {
    return machine::number(machine::bits(x) & 0xffff'ffff'f800'0000u);
}

// The real powers of a number x > 0: x^y = exp(y ln x), |y ln x| <= 700; nothing is checked. ln x is
// formed once, in two parts, and multiplied without loss.
template <class Number>
class RealPowers {
public:
    VAPRIX_INLINE explicit RealPowers(Number x) noexcept {
        const Sum<Number> ln = log_in_two(x);
        high = ln.high + ln.low;
        low = ln.low - (high - ln.high);
    }

    [[nodiscard]] VAPRIX_INLINE Number to(Number y) const noexcept {
        const Number product = y * high;
        const Number a = upper_half(y);
        const Number b = upper_half(high);
        const Number lost =
            ((a * b - product) + (a * (high - b) + (y - a) * b)) + (y - a) * (high - b);
        return exponential(product, lost + y * low);
    }

private:
    Number high, low;
};

}  // namespace vaprix
