// SPDX-License-Identifier: MIT
//
// A function z of two variables by polynomials, each of a cell of a grid, so close that one evaluation of
// what z inverts corrects it to rounding.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "frame/machine.hpp"
#include "frame/newton.hpp"

namespace vaprix {

// A block of the grid: its first cell and into how many it is divided along x and along y, powers of 2.
struct PatchBlock {
    float first, x_cells, y_cells, unused;
};

// Across a cell u and w go from -1 to 1; it has the coefficient of u^i w^j at patch_rows[i] + j, fewer of
// the higher powers of u.
inline constexpr std::array<std::size_t, 7> patch_rows{0, 8, 16, 22, 28, 32, 36};
inline constexpr std::size_t patch_terms = patch_rows.back(), patch_columns = patch_rows[1];

// Blocks are equal along y; along x they are the 2^octave_bits equal parts of the octaves of x + shift.
struct Patches {
    double shift;
    int octave_bits;
    double x_low, y_low, y_high;
    int columns;
    double base;    // of z
    double unit;    // of the coefficients
    double coarse;  // of the constant ones, in that unit
    const PatchBlock* blocks;
    const std::int32_t* coefficients;
};

namespace detail {

// The nearest integer as a number, for magnitudes below 2^51.
template <class Number>
VAPRIX_INLINE Number nearest(Number x) noexcept {
    return (x + 0x1.8p52) - 0x1.8p52;
}

}  // namespace detail

// z and its slope by y. What lies beyond the ends of y is given those of the end.
template <const Patches* patches, class Number>
[[nodiscard]] VAPRIX_INLINE Tangent<Number> evaluate_patch(Number x, Number y) noexcept {
    constexpr const Patches& grid = *patches;
    using detail::nearest;
    using machine::select;
    constexpr std::uint64_t fraction = 0x000f'ffff'ffff'ffff, one = 0x3ff0'0000'0000'0000;
    constexpr int dropped = 52 - grid.octave_bits;
    constexpr std::uint64_t first_row =
        std::bit_cast<std::uint64_t>(grid.x_low + grid.shift) >> dropped;
    constexpr double width = grid.columns, end = width - 0x1p-10;
    constexpr double per_column = width / (grid.y_high - grid.y_low);

    const auto shifted = machine::bits(x + grid.shift);
    const Number across = (y - grid.y_low) * per_column;
    const Number from_start = select(across > 0, across, 0);
    const Number along_y = select(from_start < end, from_start, end);
    const Number column = nearest(along_y - 0.5);
    const auto block =
        (((shifted >> dropped) - first_row) * static_cast<std::uint64_t>(grid.columns) +
         machine::rounded(column)) *
        (sizeof(PatchBlock) / sizeof(float));
    const auto first = machine::entries(&grid.blocks->first, block);
    const Number y_cells = machine::entries(&grid.blocks->y_cells, block).first();

    const Number x_within =
        (machine::number(((shifted << grid.octave_bits) & fraction) | one) - 1) * first.second();
    const Number y_within = (along_y - column) * y_cells;
    const Number x_cell = nearest(x_within - 0.5), y_cell = nearest(y_within - 0.5);
    const Number u = 2 * (x_within - x_cell) - 1, w = 2 * (y_within - y_cell) - 1;
    const auto cell = machine::rounded(first.first() + (x_cell * y_cells + y_cell)) * patch_terms;

    const Number u2 = u * u, u4 = u2 * u2, w2 = w * w, w4 = w2 * w2;
    const auto coefficients = machine::entries_from<patch_terms>(grid.coefficients, cell);
    const auto at = [&](std::size_t i, std::size_t j) noexcept {
        return coefficients[patch_rows[i] + j];
    };
    // sums over the powers of u, of w^j and w^(j + 1)
    const auto of_two = [&](std::size_t j) noexcept { return at(0, j) + at(1, j) * u; };
    const auto of_four = [&](std::size_t j) noexcept {
        return of_two(j) + (at(2, j) + at(3, j) * u) * u2;
    };
    const auto of_six = [&](std::size_t j) noexcept {
        return of_four(j) + (at(4, j) + at(5, j) * u) * u4;
    };
    const auto c0 = of_six(0), c2 = of_six(2), c4 = of_four(4), c6 = of_two(6);
    const auto sum = (c0 + c2 * w2) + (c4 + c6 * w2) * w4;
    const auto slopes = (c0 + c2 * (3 * w2)) + (c4 * 5 + c6 * (7 * w2)) * w4;  // of odd powers
    const Number even_slopes = (c2.first() * 2 + c4.first() * (4 * w2)) + c6.first() * (6 * w4);
    constexpr double slope_unit = 2 * per_column * grid.unit;
    const Number value = (sum.first() + (grid.coarse - 1) * at(0, 0).first()) + w * sum.second();
    return {grid.base + grid.unit * value,
            (slope_unit * y_cells) * (slopes.second() + w * even_slopes)};
}

}  // namespace vaprix
