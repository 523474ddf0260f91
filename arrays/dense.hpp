// SPDX-License-Identifier: MIT
//
// Volume and density of region 3 from pressure and temperature, for a block of states in the order of
// their subregions.
#pragma once

#include "pack.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "plan.hpp"
#include "regions/region3_density.hpp"
#include "regions/region3_volume.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::arrays {

// Subregions of the states, those of Table 2 above 25 MPa for all lanes alike, and the places of the
// states in their order.
class BySubregion {
    static constexpr std::size_t subregions = static_cast<std::size_t>(Subregion::z) + 1;
    std::array<std::uint16_t, block_size> place;
    std::array<std::uint16_t, subregions + 1> first{};

public:
    template <class Number>
    BySubregion(Kind<Number> /* lanes */, const double* p_of, const double* t_of,
                std::size_t count) noexcept {
        std::array<std::uint8_t, block_size> of;
        for (std::size_t k = 0; k < count; k += Number::lanes) {
            using Equations = Region3<Number>;
            const Number p = Number::load(p_of + k), t = Number::load(t_of + k);
            const auto number = [](Subregion subregion) {
                return Number(static_cast<int>(subregion));
            };
            const auto below_ab = t <= Equations::t3ab(p);
            const Number high =
                machine::select(below_ab, number(Subregion::a), number(Subregion::b));
            const Number warm = machine::select(t <= Equations::t3ef(p), number(Subregion::e),
                                                number(Subregion::f));
            const Number low =
                machine::select(t <= Equations::t3cd(p), number(Subregion::c),
                                machine::select(below_ab, number(Subregion::d), warm));
            alignas(64) double numbers[Number::lanes];
            machine::select(p > 40, high, low).store(numbers);
            for (std::size_t each = k; each < std::min(k + Number::lanes, count); ++each) {
                const auto subregion =
                    p_of[each] > 25
                        ? static_cast<std::size_t>(numbers[each - k])
                        : static_cast<std::size_t>(region3::subregion_pt(p_of[each], t_of[each]));
                of[each] = static_cast<std::uint8_t>(subregion);
                place[each] = first[subregion + 1]++;  // in its subregion
            }
        }
        for (std::size_t k = 0; k < subregions; ++k)
            first[k + 1] = static_cast<std::uint16_t>(first[k + 1] + first[k]);
        for (std::size_t k = 0; k < count; ++k)
            place[k] = static_cast<std::uint16_t>(place[k] + first[of[k]]);
    }

    // The numbers of an array in the order of the subregions, the last one repeated to the end of a pack.
    void sort(const double* from, double* to, std::size_t count) const noexcept {
        for (std::size_t k = 0; k < count; ++k) to[place[k]] = from[k];
        for (std::size_t k = count; k < count + padding; ++k) to[k] = to[count - 1];
    }
    void restore(const double* from, double* to, std::size_t count) const noexcept {
        for (std::size_t k = 0; k < count; ++k) to[k] = from[place[k]];
    }
    // Calls `visit` with each subregion that has states, the first of them and the end.
    template <class Visit>
    void each(Visit visit) const noexcept {
        for (std::size_t k = 0; k < subregions; ++k)
            if (first[k] < first[k + 1]) visit(static_cast<Subregion>(k), first[k], first[k + 1]);
    }
};

// As density_pt() has it from the published volume, by the same steps; 0 where a lane leaves its side
// or its bracket, where the isotherm falls, and after more rounds than an ordinary state needs.
template <class Number>
VAPRIX_INLINE Number density_of(Number p, Number t, Number v) noexcept {
    using machine::select;
    constexpr int rounds = 8;
    const typename Region3<Number>::Isotherm isotherm(t);
    Number side_low = 0, side_high = region3_density::densest;
    const auto below = t <= T_crit;
    if (!machine::none(below)) {
        const auto liquid = (p > p_crit) | (t < tsat(p));
        side_low = select(below & liquid, Number(d_crit), 0);
        side_high = select(below & !liquid, Number(d_crit), side_high);
    }
    Number d = 1 / v;
    d = machine::in_single(select(d < side_low, side_low, select(side_high < d, side_high, d)));
    Number low = side_low, high = side_high;
    Number root = region3_density::corrected(isotherm, p, d);
    auto searching = !((side_low < root) & (root < side_high));
    if (machine::none(searching)) return root;
    for (int round = 0; round < rounds; ++round) {
        const Number slope = isotherm.p_d(d);
        const Number step = (p - isotherm.p(d)) / slope;
        searching = searching & (slope > 0);
        const auto settled =
            searching & (machine::fabs(step) < region3_density::last_step * machine::fabs(d));
        const Number end = d + step;
        root = select(settled, select(end < low, low, select(high < end, high, end)), root);
        searching = searching & !settled;
        if (machine::none(searching)) break;
        const auto rises = step > 0;
        low = select(rises, d, low);
        high = select(rises, high, d);
        d = end;
        searching = searching & (low < d) & (d < high);
    }
    return select((side_low < root) & (root < side_high), root, 0);
}

// What a resolver makes of p and T in a region that is known: the B-family has v, and d from it, the
// O-family d, and v from it.
enum class Finish { none, volume, density };

// Volume or density of region 3 from p and T. The B-family's volume next to the critical point, which is
// iterated, is left.
template <Finish finish, class Number>
void solve_region3(const double* p_of, const double* t_of, double* found, double* result,
                   std::size_t count) noexcept {
    const BySubregion order(Kind<Number>{}, p_of, t_of, count);
    alignas(64) double p[block_size + padding], t[block_size + padding], v[block_size + padding];
    order.sort(p_of, p, count);
    order.sort(t_of, t, count);
    // a pack reaches into the next subregions, whose own packs come after it
    order.each([&](Subregion subregion, std::size_t begin, std::size_t end) noexcept {
        const bool left = finish == Finish::volume && subregion >= Subregion::u;
        for (std::size_t k = begin; k < end; k += Number::lanes) {
            const Number volume = left ? Number(0)
                                       : Region3<Number>::v_subregion(
                                             subregion, Number::load(p + k), Number::load(t + k));
            volume.store(v + k);
        }
    });
    if constexpr (finish == Finish::density) {
        for (std::size_t k = 0; k < count; k += Number::lanes) {
            density_of(Number::load(p + k), Number::load(t + k), Number::load(v + k)).store(v + k);
        }
    }
    order.restore(v, result, count);
    std::fill(result + count, result + padded(count), 1.0);
    for (std::size_t k = 0; k < count; k += Number::lanes) {
        const auto is_found = Number::load(result + k) > 0;
        machine::select(is_found, Number::load(t_of + k), 0).store(found + k);
    }
}

}  // namespace vaprix::arrays
