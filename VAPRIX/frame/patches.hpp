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

// Across a cell u and w go from -1 to 1; it has the coefficients of u^i w^j, u^i w^(j + 1), u^(i + 1) w^j
// and u^(i + 1) w^(j + 1) side by side, of these (i, j), those of higher order as narrow integers.
struct PatchPowers {
    std::size_t i, j;
};
inline constexpr std::size_t wide_quads = 3, narrow_quads = 6;
inline constexpr std::array<PatchPowers, wide_quads + narrow_quads> patch_quads{
    {{0, 0}, {0, 2}, {2, 0}, {0, 4}, {0, 6}, {2, 2}, {2, 4}, {4, 0}, {4, 2}}};
using PatchRow = machine::QuadRow<wide_quads, narrow_quads>;
inline constexpr std::size_t patch_terms = 4 * patch_quads.size();

// Blocks are equal along y; along x they are the 2^octave_bits equal parts of the octaves of x + shift.
struct Patches {
    double shift;
    int octave_bits;
    double x_low, y_low, y_high;
    int columns;
    double base;    // of z
    double unit;    // of the wide coefficients
    double coarse;  // of the constant ones, in that unit
    double narrow;  // of the narrow ones, likewise
    const PatchBlock* blocks;
    const PatchRow* rows;
};

namespace detail {

// The nearest integer as a number, for magnitudes below 2^51.
template <class Number>
VAPRIX_INLINE Number nearest(Number x) noexcept {
    return (x + 0x1.8p52) - 0x1.8p52;
}

}  // namespace detail

// A cell, where in it, and how many of them its block has along y.
template <class Number>
struct PatchPlace {
    decltype(machine::rounded(Number())) cell;
    Number u, w, y_cells;
};

// What lies beyond the ends of y is put on the end.
template <const Patches* patches, class Number>
[[nodiscard]] VAPRIX_INLINE PatchPlace<Number> patch_place(Number x, Number y) noexcept {
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
    return {machine::rounded(first.first() + (x_cell * y_cells + y_cell)), u, w, y_cells};
}

// z and its slope by y at a place in patches of the same blocks.
template <const Patches* patches, class Number>
[[nodiscard]] VAPRIX_INLINE Tangent<Number> evaluate_patch(
    const PatchPlace<Number>& place) noexcept {
    constexpr const Patches& grid = *patches;
    const Number u = place.u, w = place.w;
    const auto row = machine::quads_at(grid.rows, place.cell);
    const auto two = [&](std::size_t quad) noexcept {
        const auto [first_two, second_two] = row[quad];
        return first_two + second_two * u;
    };
    constexpr double narrow = grid.narrow / machine::narrow_factor;
    const Number u2 = u * u, u4 = u2 * u2, w2 = w * w, w4 = w2 * w2 * narrow;
    // sums over the powers of u, of w^j and w^(j + 1), of c4 and c6 in narrow units
    const auto c0 = (two(0) + two(2) * u2) + two(7) * (u4 * narrow);
    const auto c2 = two(1) + (two(5) * u2 + two(8) * u4) * narrow;
    const auto c4 = two(3) + two(6) * u2, c6 = two(4);
    const auto sum = (c0 + c2 * w2) + (c4 + c6 * w2) * w4;
    const auto slopes = (c0 + c2 * (3 * w2)) + (c4 * 5 + c6 * (7 * w2)) * w4;  // of odd powers
    const Number even_slopes =
        c2.first() * 2 + (c4.first() * 4 + c6.first() * (6 * w2)) * (w2 * narrow);
    constexpr double slope_unit = 2 * grid.columns / (grid.y_high - grid.y_low) * grid.unit;
    const Number value =
        (sum.first() + (grid.coarse - 1) * row[0].first.first()) + w * sum.second();
    return {grid.base + grid.unit * value,
            (slope_unit * place.y_cells) * (slopes.second() + w * even_slopes)};
}

template <const Patches* patches, class Number>
[[nodiscard]] VAPRIX_INLINE Tangent<Number> evaluate_patch(Number x, Number y) noexcept {
    return evaluate_patch<patches>(patch_place<patches>(x, y));
}

}  // namespace vaprix
