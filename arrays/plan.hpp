// SPDX-License-Identifier: MIT
//
// How packs of lanes answer a block of an export: the elements are divided into parts, by region and
// subregion, each of which is evaluated without a branch. What falls into no part is left to the
// export's own answer: states on a limit or beside one, failures, regions without kernels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vaprix::arrays {

inline constexpr std::size_t block_size = 512;
// Up to the next multiple of it, the arrays of a block may be read and written beyond its elements;
// the arguments there are those of the last element.
inline constexpr std::size_t padding = 8;
[[nodiscard]] constexpr std::size_t padded(std::size_t count) noexcept {
    return (count + padding - 1) / padding * padding;
}

// A bit of each element of a block, the first the lowest.
using Elements = std::array<std::uint64_t, block_size / 64>;

// Single phases, region 3 whole or as the backward equations of (p, h) and (p, s) divide it, before wet
// steam, whose phases are below region 3 or of it.
enum Part : std::size_t {
    region1,
    region2a,
    region2b,
    region2c,
    region3,
    region3a,
    region3b,
    region5,
    wet,
    wet_dense,
    outside,
    parts
};
using Divided = std::array<Elements, parts>;

// What all elements of a part are answered with.
struct Constant {
    bool is_given = false;
    double value = 0;
    std::int32_t code = 0;
};

// What is answered above a temperature, K.
struct Limited {
    double t = 1e300;
    Constant answer{};
};

// Which of p and T are solved for, the others being given: with both, T stands where else density or
// quality does.
enum class Solved { t, p, both };

struct Plan {
    using Divide = void (*)(const double* x, const double* y, std::size_t count,
                            Divided& divided) noexcept;
    using Solve = void (*)(const double* x, const double* y, double* solved, double* dense,
                           std::size_t count) noexcept;
    using Evaluate = void (*)(const double* p, const double* t, const double* dense, double* out,
                              std::size_t count) noexcept;

    Divide divide = nullptr;  // null: no plan
    std::array<Constant, parts> constant{};
    // What the equation needs beside the first given variable, not above 0 where it is not found, and in
    // region 3 the volume (B-family) or density (O-family), of wet steam the quality; null: the second
    // given one.
    std::array<Solve, parts> solve{};
    Solved solves = Solved::t;
    // Of p and T and what else has been solved for; null: the part is left.
    std::array<Evaluate, parts> evaluate{};
    // Whether all states have been found, at temperatures that the answer rule has no word about.
    bool (*all_found)(const Plan& plan, const double* p, const double* t,
                      std::size_t count) noexcept = nullptr;
    bool has_limits = false;  // of those temperatures
    double t_low = 0;         // above 0
    double t_high = 1e300;    // the lower one of these, of which the first holds above both:
    std::array<Limited, 2> above{};
};

}  // namespace vaprix::arrays
