// SPDX-License-Identifier: MIT
//
// Which part each state of a block belongs to, decided for all lanes alike, wherever the bounds of the
// limits settle it.
#pragma once

#include "pack.hpp"

#include "inverse/second_variable.hpp"
#include "plan.hpp"
#include "pt/region_pt.hpp"
#include "regions/isobar_limits.hpp"
#include "saturation/of_line.hpp"

namespace vaprix::arrays {

template <int lanes>
VAPRIX_INLINE void add(Elements& elements, std::size_t first, Mask<lanes> mask) noexcept {
    elements[first / 64] |= std::uint64_t{machine::truths(mask)} << (first % 64);
}

// As region_pt() has it. Beside the saturation line, and above 623.15 K wherever it may be wet, a
// state falls into no part.
template <class Number>
void divide_pt(const double* p_of, const double* t_of, std::size_t count,
               Divided& divided) noexcept {
    for (std::size_t k = 0; k < count; k += Number::lanes) {
        const Number p = Number::load(p_of + k), t = Number::load(t_of + k);
        const auto valid =
            (t >= T_min - limit_tolerance) & (t <= T_max) & (p <= p_max) & (p >= p_min);
        const auto cold = valid & (t <= T_13);
        auto vapour = valid & (t > T_23_max) & (t <= T_25 + limit_tolerance);
        if (!machine::none(cold)) {
            // either band will do at the limit of two: the bounds cover their own ends' rounding
            const Number band = (t - T_min) * detail::psat_bands_per_kelvin - 0.5;
            const auto index = machine::rounded(machine::select(cold & (band > 0), band, 0.0));
            const double* const bounds = &detail::psat_band_bounds[0].low;
            const auto liquid = cold & (p > machine::entry(bounds + 1, index + index));
            add(divided[region1], k, liquid);
            const auto rest = cold & (!liquid);
            if (!machine::none(rest)) {
                vapour = vapour | (rest & (p < machine::entry(bounds, index + index)));
            }
        }
        const auto warm = valid & (t > T_13) & (t <= T_23_max);
        if (!machine::none(warm)) vapour = vapour | (warm & (p <= p_b23(t)));
        const auto hot = valid & (t > T_25 + limit_tolerance);
        add(divided[region2a], k, vapour);
        add(divided[region5], k, hot & (p <= p_max_5));
        add(divided[outside], k, ((!valid) & (t == t)) | (hot & (p > p_max_5)));
    }
}

// As region_but_phase() has it, region 2 with the subregions of its backward equation.
template <class Y, class Number>
void divide_py(const double* p_of, const double* y_of, std::size_t count,
               Divided& divided) noexcept {
    for (std::size_t k = 0; k < count; k += Number::lanes) {
        const Number p = Number::load(p_of + k), y = Number::load(y_of + k);
        const auto valid = (p <= p_max) & (p >= p_min);
        const auto band =
            (machine::bits(machine::select(valid, p, Number(p_min))) >> band_bits_dropped) -
            first_band;
        constexpr std::size_t bounds = sizeof(IsobarLimits) / sizeof(float);
        const auto index = band * bounds;
        // above one limit of the isobar and below the next
        const auto between = [&](std::size_t bound) {
            const auto limits = machine::entries(&Y::limits[0].cold.low + bound, index);
            return valid & (y > limits.first) & (y < limits.second);
        };
        enum : std::size_t { cold_high = 1, vapour_high = 5, t25_high = 7 };
        const auto liquid = between(cold_high);
        add(divided[region1], k, liquid);
        if (!machine::none(valid & (!liquid))) {
            const auto vapour = between(vapour_high);
            const auto a = vapour & (p <= Region2<Number>::p_2a);
            const auto c = vapour & (!a) & Y::template is_2c<Number>(p, y);
            add(divided[region2a], k, a);
            add(divided[region2b], k, vapour & (!a) & (!c));
            add(divided[region2c], k, c);
            add(divided[region5], k, between(t25_high));
        }
        add(divided[outside], k, (!valid) & (p == p));
    }
}

// Saturated phases below region 3, by temperature and by pressure (B-family), as line_of_t() and
// line_of_p_b() have them; the part is that of the phase.
template <Part phase, class Number>
void divide_line_t(const double* t_of, const double* /* again */, std::size_t count,
                   Divided& divided) noexcept {
    for (std::size_t k = 0; k < count; k += Number::lanes) {
        const Number t = Number::load(t_of + k);
        add(divided[phase], k, (t >= T_min) & (t <= T_13));
        add(divided[outside], k, (t < T_min) | (t > T_crit));
    }
}
template <Part phase, class Number>
void divide_line_p(const double* p_of, const double* /* again */, std::size_t count,
                   Divided& divided) noexcept {
    constexpr double cold = psat_13 * (1 - 1e-9);  // whatever the rounding of Eq. (31)
    for (std::size_t k = 0; k < count; k += Number::lanes) {
        const Number p = Number::load(p_of + k);
        add(divided[phase], k, (p >= line_p_lowest) & (p <= cold));
        add(divided[outside], k, (p < line_p_lowest) | (p > p_crit));
    }
}

}  // namespace vaprix::arrays
