// SPDX-License-Identifier: MIT
//
// Which part each state of a block belongs to, decided for all lanes alike, wherever the bounds of the
// limits settle it.
#pragma once

#include "pack.hpp"

#include <algorithm>
#include <array>

#include "inverse/region_py.hpp"
#include "inverse/second_variable.hpp"
#include "plan.hpp"
#include "pt/region_pt.hpp"
#include "regions/isobar_limits.hpp"
#include "saturation/of_line.hpp"

namespace vaprix::arrays {

// Calls `parts_of` with the number of the first element of each pack and with what adds a mask of them to
// a part. The bits of 64 elements are held in registers.
template <class Number, class PartsOf>
VAPRIX_INLINE void divide_each(std::size_t count, Divided& divided, PartsOf parts_of) noexcept {
    for (std::size_t first = 0; first < count; first += 64) {
        std::array<std::uint64_t, parts> bits{};
        const std::size_t last = std::min<std::size_t>(count - first, 64);
        for (std::size_t k = 0; k < last; k += Number::lanes) {
            parts_of(first + k, [&bits, k](Part part, auto mask) noexcept {
                bits[part] |= std::uint64_t{machine::truths(mask)} << k;
            });
        }
        for (std::size_t part = 0; part < parts; ++part) divided[part][first / 64] = bits[part];
    }
}

// Where the saturation line is surely not: an isotherm's and an isobar's distance from it, and from the
// critical pressure.
inline constexpr double off_line = 1e-6;  // K and MPa

// Surely below and above the saturation pressure of a temperature up to 623.15 K, by the fourth power of
// how far that is from 273.15 K: where most states lie.
template <class Number>
struct RoughPressures {
    Number low, high;  // MPa
    VAPRIX_INLINE constexpr explicit RoughPressures(Number t) noexcept {
        const Number u = (t - T_min) * (1 / (T_13 - T_min)), u4 = (u * u) * (u * u);
        low = 12.5 * u4;
        high = 17.2 * u4 + 0.01;
    }
};
static_assert([] {
    for (std::size_t band = 0; band < detail::psat_bands; ++band) {
        const auto end = [](std::size_t k) {
            return RoughPressures(T_min + static_cast<double>(k) / detail::psat_bands_per_kelvin);
        };
        const PressureBounds& bounds = detail::psat_band_bounds[band];
        if (end(band + 1).low >= static_cast<double>(bounds.low)) return false;
        if (end(band).high <= static_cast<double>(bounds.high)) return false;
    }
    return true;
}());

// As region_pt() has it. On the saturation line, beside it and beside the critical pressure a state
// falls into no part.
template <class Number>
void divide_pt(const double* p_of, const double* t_of, std::size_t count,
               Divided& divided) noexcept {
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number p = Number::load(p_of + k), t = Number::load(t_of + k);
        const auto valid =
            (t >= T_min - limit_tolerance) & (t <= T_max) & (p <= p_max) & (p >= p_min);
        if (machine::none(valid)) return add(outside, t == t);
        const auto cold = valid & (t <= T_13);
        auto vapour = valid & (t > T_23_max) & (t <= T_25 + limit_tolerance);
        if (!machine::none(cold)) {
            const RoughPressures rough(t);
            auto liquid = cold & (p > rough.high), steam = cold & (p < rough.low);
            if (!machine::none(cold & !(liquid | steam))) {
                // either band will do at the limit of two: the bounds cover their own ends' rounding
                const Number band = (t - T_min) * detail::psat_bands_per_kelvin - 0.5;
                const auto index = machine::rounded(machine::select(cold & (band > 0), band, 0.0));
                const auto bounds =
                    machine::entries(&detail::psat_band_bounds[0].low, index + index);
                liquid = cold & (p > bounds.second());
                steam = cold & (p < bounds.first());
            }
            add(region1, liquid);
            vapour = vapour | steam;
            if (machine::none(!(liquid | vapour))) return add(region2a, vapour);
        }
        const auto warm = valid & (t > T_13) & (t <= T_23_max);
        if (!machine::none(warm)) {
            const auto dense = warm & (p > p_b23(t));
            vapour = vapour | (warm & !dense);
            if (!machine::none(dense)) {
                auto single = dense & (p > p_crit + off_line);
                const auto subcritical = dense & (p < p_crit - off_line);
                if (!machine::none(subcritical)) {
                    single = single | (subcritical & (machine::fabs(t - tsat(p)) > off_line));
                }
                add(region3, single);
            }
        }
        const auto hot = valid & (t > T_25 + limit_tolerance);
        add(region2a, vapour);
        add(region5, hot & (p <= p_max_5));
        add(outside, ((!valid) & (t == t)) | (hot & (p > p_max_5)));
    });
}

// Saturation pressures below region 3 and of it, whatever the rounding of their temperatures; beside the
// critical point, where their densities are estimated, they are left.
inline constexpr double p_below_region3 = psat_13 * (1 - 1e-9);
template <class Number>
VAPRIX_INLINE auto is_solved_in_region3(Number p) noexcept {
    return (p > psat_13 * (1 + 1e-9)) & (p < p_crit - 2 * estimated_zone);
}
// The same of their temperatures, K, of which a pressure falls by 0.2 to 0.27 MPa each.
template <class Number>
VAPRIX_INLINE auto is_solved_in_region3_at(Number t) noexcept {
    return (t > T_13 + off_line) & (t < T_crit - 10 * estimated_zone);
}

enum class Family { b, o };

// As region_b() or region_o() has it, regions 2 and 3 with the subregions of their backward equations.
template <class Y, Family family, class Number>
VAPRIX_INLINE auto is_wet_steam(Number p, Number y) noexcept {
    if constexpr (family == Family::b) return p < Y::template Backward<Number>::p3sat(y);
    if constexpr (family == Family::o) return Y::is_wet_o(p, y);
}
template <class Y, Family family, class Number>
void divide_py(const double* p_of, const double* y_of, std::size_t count,
               Divided& divided) noexcept {
    using Backward = typename Y::template Backward<Number>;
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number p = Number::load(p_of + k), y = Number::load(y_of + k);
        const auto valid = (p <= p_max) & (p >= p_min);
        if (machine::none(valid)) return add(outside, p == p);
        const auto band =
            (machine::bits(machine::select(valid, p, Number(p_min))) >> band_bits_dropped) -
            first_band;
        constexpr std::size_t bounds = sizeof(IsobarLimits) / sizeof(float);
        const auto index = band * bounds;
        // above one limit of the isobar and below the next
        const auto between = [&](std::size_t bound) {
            const auto limits = machine::entries(&Y::limits[0].cold.low + bound, index);
            return valid & (y > limits.first()) & (y < limits.second());
        };
        enum : std::size_t { cold_high = 1, liquid_high = 3, vapour_high = 5, t25_high = 7 };
        const auto liquid = between(cold_high);
        add(region1, liquid);
        if (!machine::none(valid & (!liquid))) {
            const auto vapour = between(vapour_high);
            const auto a = vapour & (p <= Region2<Number>::p_2a);
            const auto c = vapour & (!a) & Backward::is_2c(p, y);
            add(region2a, a);
            add(region2b, vapour & (!a) & (!c));
            add(region2c, c);
            if (!machine::none(valid & (!(liquid | vapour)))) {
                add(region5, between(t25_high));
                const auto between_phases = between(liquid_high);
                add(wet, between_phases & (p <= p_below_region3));
                const auto dense = between_phases & (p > psat_13);
                if (!machine::none(dense)) {
                    auto single = dense & (p > p_crit);
                    const auto subcritical = dense & is_solved_in_region3(p);
                    if (!machine::none(subcritical)) {
                        const auto mixture = subcritical & is_wet_steam<Y, family>(p, y);
                        add(wet_dense, mixture);
                        single = single | (subcritical & !mixture);
                    }
                    const auto a3 = Backward::is_3a(p, y);
                    add(region3a, single & a3);
                    add(region3b, single & !a3);
                }
            }
        }
        add(outside, (!valid) & (p == p));
    });
}

// Of a pressure of the line, which of them are refused.
template <Family family, class Number>
VAPRIX_INLINE auto is_off_line(Number p) noexcept {
    if constexpr (family == Family::b) return (p < line_p_lowest) | (p > p_crit);
    if constexpr (family == Family::o) return (p <= 0) | (p > p_crit);
}
template <class Number>
VAPRIX_INLINE auto is_below_region3(Number p) noexcept {
    return (p >= line_p_lowest) & (p <= p_below_region3);
}

// Saturated phases and wet steam, by temperature and by pressure, as line_of_t() and line_of_p_b() or
// line_of_p_o() have them; the part below region 3 is that of the phase.
template <Part phase>
inline constexpr Part dense_part = phase == wet ? wet_dense : region3;
template <Part phase, class Number>
void divide_line_t(const double* t_of, const double* /* again */, std::size_t count,
                   Divided& divided) noexcept {
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number t = Number::load(t_of + k);
        add(phase, (t >= T_min) & (t <= T_13));
        add(dense_part<phase>, is_solved_in_region3_at(t));
        add(outside, (t < T_min) | (t > T_crit));
    });
}
template <Part phase, Family family, class Number>
void divide_line_p(const double* p_of, const double* /* again */, std::size_t count,
                   Divided& divided) noexcept {
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number p = Number::load(p_of + k);
        add(phase, is_below_region3(p));
        add(dense_part<phase>, is_solved_in_region3(p));
        add(outside, is_off_line<family>(p));
    });
}

// Wet steam of given quality, as wet_of_tx(), wet_of_px_b() and wet_of_px_o() have it; a quality out of
// range is left.
template <class Number>
void divide_tx(const double* t_of, const double* x_of, std::size_t count,
               Divided& divided) noexcept {
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number t = Number::load(t_of + k), x = Number::load(x_of + k);
        const auto good = (x >= 0) & (x <= 1);
        add(wet, good & (t >= T_min) & (t <= T_13));
        add(wet_dense, good & is_solved_in_region3_at(t));
        add(outside, (t < T_min) | (t > T_crit));
    });
}
template <Family family, class Number>
void divide_px(const double* p_of, const double* x_of, std::size_t count,
               Divided& divided) noexcept {
    divide_each<Number>(count, divided, [=](std::size_t k, auto add) noexcept {
        const Number p = Number::load(p_of + k), x = Number::load(x_of + k);
        const auto good = (x >= 0) & (x <= 1);
        add(wet, good & is_below_region3(p));
        add(wet_dense, good & is_solved_in_region3(p));
        // the B-family takes a pressure by its absolute value
        if constexpr (family == Family::b) add(outside, machine::fabs(p) > p_crit);
        if constexpr (family == Family::o) add(outside, good & is_off_line<family>(p));
    });
}

}  // namespace vaprix::arrays
