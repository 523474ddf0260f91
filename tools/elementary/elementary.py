#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints VAPRIX/frame/tables/elementary.hpp: tables and polynomials of the elementary functions.

A polynomial is the one of its degree whose largest error over the interval is least, by Remez's exchange.
"""
import decimal
import functools
import math

D = decimal.Decimal
decimal.getcontext().prec = 60
LN2 = D(2).ln()
NODES = 1000  # points among which the largest errors are looked for

EXP_PARTS = 64  # 2^(1/64) apart
LOG_PARTS = 128  # of one doubling
LOG_START = 0x3FE6900000000000  # bits of the least number that is reduced to 1: 1 itself is amid a part


def chebyshev(low, high, count):
    cosines = [D(round(math.cos(math.pi * k / (count - 1)), 12)) for k in range(count)]  # the same on every machine
    return [(low + high) / 2 - (high - low) / 2 * cosine for cosine in cosines]


def solved(rows):
    """Solution of linear equations, each row its coefficients and the right side."""
    for k in range(len(rows)):
        pivot = max(range(k, len(rows)), key=lambda i: abs(rows[i][k]))
        rows[k], rows[pivot] = rows[pivot], rows[k]
        for i, row in enumerate(rows):
            if i != k:
                factor = row[k] / rows[k][k]
                rows[i] = [a - factor * b for a, b in zip(row, rows[k])]
    return [row[-1] / row[k] for k, row in enumerate(rows)]


def minimax(function, low, high, degree):
    """Coefficients in rising order, and the largest error."""
    reference = chebyshev(low, high, degree + 2)
    grid = [(x, function(x)) for x in chebyshev(low, high, NODES)]
    for _ in range(8):
        *coefficients, level = solved(
            [[D(1)] + [x**k for k in range(1, degree + 1)] + [D((-1) ** i), function(x)]
             for i, x in enumerate(reference)])
        errors = [(x, functools.reduce(lambda sum_, c: sum_ * x + c, reversed(coefficients)) - y) for x, y in grid]
        worst, bends = max(abs(e) for _, e in errors), []
        for x, e in errors:  # the largest error of each run of one sign
            if bends and (e > 0) == (bends[-1][1] > 0):
                bends[-1] = max(bends[-1], (x, e), key=lambda found: abs(found[1]))
            else:
                bends.append((x, e))
        reference = [x for x, _ in bends]
        if worst < abs(level) * D("1.001"):
            return coefficients, worst
        assert len(reference) == degree + 2, "the errors do not alternate"
    raise ArithmeticError("the exchange does not settle")


def rounded(value, places):
    """To a multiple of 2^-places, and what is left."""
    high = (value * 2**places).to_integral_value() / 2**places
    return high, value - high


def double_of(bits):
    exponent, fraction = bits >> 52, bits & (2**52 - 1)
    return D(2**52 + fraction) * D(2) ** (exponent - 1075)


def constant(name, value, comment=""):
    print(f"inline constexpr double {name} = {float(value)!r};" + (f"  // {comment}" if comment else ""))


def array(name, values, kind="double", text=lambda value: repr(float(value))):
    print(f"inline constexpr {kind} {name}[] = {{")
    for value in values:
        print(f"    {text(value)},")
    print("};")


def exponential():
    r_max = LN2 / EXP_PARTS / 2 * D("1.001")
    series, error = minimax(lambda r: (r.exp() - 1 - r) / r**2 if abs(r) > 1e-12 else D(1) / 2, -r_max, r_max, 3)
    ln2_high, ln2_low = rounded(LN2 / EXP_PARTS, 42)
    print(f"\n// exp x = 2^(k/{EXP_PARTS}) exp r, x = k ln(2)/{EXP_PARTS} + r, its first part times any k exact.")
    constant("exp_per_ln2", EXP_PARTS / LN2)
    constant("exp_ln2_high", ln2_high)
    constant("exp_ln2_low", ln2_low)
    print(f"\n// (exp r - 1 - r)/r^2, off by {float(error):.0e}")
    array("exp_series", series)
    roots = [(LN2 * k / EXP_PARTS).exp() for k in range(EXP_PARTS)]
    print(f"\n// 2^(k/{EXP_PARTS}) and what its rounding leaves of it, relative")
    array("exp_root", roots)
    array("exp_root_low", [(root - D(float(root))) / root for root in roots])


def logarithm():
    places = 42  # all first parts are multiples of 2^-42, so that their sum is exact
    starts = [double_of(LOG_START + (k << 45)) for k in range(LOG_PARTS + 1)]
    reciprocals = [D(1) if a < 1 < b else rounded(2 / (a + b), 11)[0] for a, b in zip(starts, starts[1:])]
    r_max = max(max(abs(a * c - 1), abs(b * c - 1)) for a, b, c in zip(starts, starts[1:], reciprocals))
    series, error = minimax(lambda r: ((1 + r).ln() - r) / r**2 if abs(r) > 1e-12 else -D(1) / 2, -r_max, r_max, 5)
    logs = [rounded(-c.ln(), places) for c in reciprocals]
    ln2_high, ln2_low = rounded(LN2, places)
    print("\n// ln x = k ln 2 - ln c + ln(1 + r), x = 2^k z, r = c z - 1, c near 1/z by the leading bits of z.")
    print(f"// First parts are multiples of 2^-{places}: their sums are exact.")
    constant("log_ln2_high", ln2_high)
    constant("log_ln2_low", ln2_low)
    print(f"inline constexpr std::uint64_t log_start = {LOG_START:#x};  // bits of the least z")
    print(f"\n// (ln(1 + r) - r)/r^2, |r| < {float(r_max):.5f}, off by {float(error):.0e}")
    array("log_series", series)
    print("\n// c, multiples of 2^-11, and -ln c in two parts")
    array("log_c", reciprocals)
    array("log_high", [high for high, _ in logs])
    array("log_low", [low for _, low in logs])
    return reciprocals, r_max


def inverse_three_fifths(reciprocals, r_max):
    power = D(3) / 5
    series, error = minimax(lambda r: ((1 + r) ** -power - 1) / r if abs(r) > 1e-12 else -power, -r_max, r_max, 5)
    print(f"\n// ((1 + r)^(-3/5) - 1)/r, r as of ln x, off by {float(error):.0e}")
    array("three_fifths_series", series)
    print("\n// c^(3/5) and 2^(-3k/5)")
    array("three_fifths_of_c", [c**power for c in reciprocals])
    array("three_fifths_of_half", [D(2) ** (-power * k) for k in range(5)])


def main():
    print("""// SPDX-License-Identifier: MIT
//
// Tables and polynomials of the elementary functions.
// Generated by tools/elementary/elementary.py, not by hand.
#pragma once

#include <cstdint>

namespace vaprix::tables::elementary {""")
    exponential()
    inverse_three_fifths(*logarithm())
    print("\n}  // namespace vaprix::tables::elementary")


if __name__ == "__main__":
    main()
