// SPDX-License-Identifier: MIT
//
// Properties of a state. single() holds the one switch on the region; wet steam follows from its
// two phases by the lever rule.
// Source: IAPWS R7-97(2012), Tables 3, 12, 31 and 41.
#pragma once

#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"
#include "regions/region5.hpp"
#include "state/state.hpp"

namespace vaprix {

// A property by the equation of each region.
struct Property {
    using OfPt = double (*)(double, double) noexcept;
    using OfState = double (*)(const State&) noexcept;
    OfPt region1, region2;
    OfState region3;
    OfPt region5;
    Asked asked{.single = true, .wet = true};
};

// A property that is the same for every region, or of the variables alone.
struct Reading {
    double (*of)(const State&) noexcept;
    Asked asked;
    double factor = 1;  // from the SI unit to that of the export: some failures are scaled too
};

// Of a single phase.
template <const auto& property>
[[nodiscard]] VAPRIX_INLINE double single(const State& state) noexcept {
    if constexpr (requires { property.of; }) {
        return property.of(state);
    } else {
        switch (state.region) {
            case Region::one: return property.region1(state.p, state.t);
            case Region::two: return property.region2(state.p, state.t);
            case Region::three: return property.region3(state);
            case Region::five: return property.region5(state.p, state.t);
            default: return failed;
        }
    }
}

// The same, and of wet steam by the lever rule: at the qualities 0 and 1 the phases to the last
// digit.
template <const auto& property>
[[nodiscard]] VAPRIX_INLINE double mixed(const State& state) noexcept {
    if constexpr (requires { property.of; }) {
        return property.of(state);
    } else {
        if (state.region != Region::wet) return single<property>(state);
        if (state.x == 0) return single<property>(liquid_end(state));
        const double of_vapour = single<property>(vapour_end(state));
        if (state.x == 1) return of_vapour;
        const double of_liquid = single<property>(liquid_end(state));
        return of_liquid + state.x * (of_vapour - of_liquid);
    }
}

// Quality at which the mixture of the two phases has the given value of the property.
template <const auto& property>
[[nodiscard]] VAPRIX_INLINE double quality(const State& wet, double value) noexcept {
    const double of_liquid = single<property>(liquid_end(wet));
    return (value - of_liquid) / (single<property>(vapour_end(wet)) - of_liquid);
}

namespace property {

template <double (*of)(double, double) noexcept>
double of_dt(const State& state) noexcept {
    return of(state.d, state.t);
}

// f = u - T s
template <Property::OfPt u_of, Property::OfPt s_of>
double helmholtz(double pressure, double t) noexcept {
    return u_of(pressure, t) - t * s_of(pressure, t);
}

inline constexpr Property v{region1::v, region2::v, [](const State& at) noexcept { return at.v; },
                            region5::v};
inline constexpr Property h{region1::h, region2::h, of_dt<region3::h>, region5::h};
inline constexpr Property s{region1::s, region2::s, of_dt<region3::s>, region5::s};
inline constexpr Property u{region1::u, region2::u, of_dt<region3::u>, region5::u};
inline constexpr Property f{helmholtz<region1::u, region1::s>, helmholtz<region2::u, region2::s>,
                            of_dt<region3::f>, helmholtz<region5::u, region5::s>};
inline constexpr Property g{region1::g, region2::g, of_dt<region3::g>, region5::g};
inline constexpr Property cp{region1::cp, region2::cp, of_dt<region3::cp>, region5::cp};
inline constexpr Property cv{region1::cv, region2::cv, of_dt<region3::cv>, region5::cv};
inline constexpr Property w{region1::w, region2::w, of_dt<region3::w>, region5::w};

// The variables themselves.
inline constexpr Reading p{[](const State& at) noexcept { return at.p; }, {.p = true}};
inline constexpr Reading T{[](const State& at) noexcept { return at.t; }, {.t = true}};
inline constexpr Reading x{[](const State& at) noexcept { return at.x; }, {.wet = true}};

// Region as the exports report it: the saturation line and wet steam as 4, the number of the
// equation.
inline constexpr Reading region{
    [](const State& at) noexcept {
        return at.region == Region::wet ? 4.0 : static_cast<double>(at.region);
    },
    {}};

// Density, kg/m3: of a single phase as the resolver has formed it, of wet steam that of the mixed
// volumes.
inline constexpr Reading d{
    [](const State& at) noexcept { return at.region == Region::wet ? 1 / mixed<v>(at) : at.d; },
    {.density = true, .wet = true}};

// Reciprocals that are the result of some exports, down to the rounding.
inline constexpr Reading v_of_d{[](const State& at) noexcept {
                                    const double density = d.of(at);
                                    return density > 0 ? 1 / density : failed;
                                },
                                d.asked};
inline constexpr Reading d_of_v{[](const State& at) noexcept { return 1 / mixed<v>(at); }, v.asked};
inline constexpr Reading v_of_d_of_v{[](const State& at) noexcept { return 1 / d_of_v.of(at); },
                                     v.asked};

}  // namespace property

// A state of region 1, 2 or 5 with its density, if that is asked for.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State with_density(State state) noexcept {
    if constexpr (asked.density) {
        state.d = 1 / single<property::v>(state);
        state.v = 1 / state.d;
    }
    return state;
}

}  // namespace vaprix
