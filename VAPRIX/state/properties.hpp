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

// A kind of number, for what cannot deduce it.
template <class Number>
struct Kind {};

// What evaluates a property in each region.
template <class Number>
struct Equations {
    using OfPt = Number (*)(Number, Number) noexcept;
    using OfState = Number (*)(const StateOf<Number>&) noexcept;
    OfPt region1, region2;
    OfState region3;
    OfPt region5;
};

// A property by the equation of each region; EquationsOf gives them for a kind of number.
template <class EquationsOf>
struct Property {
    EquationsOf equations;
    Asked asked{.single = true, .wet = true};

    // By the equation of one region, which is known.
    template <class Number>
    [[nodiscard]] VAPRIX_INLINE constexpr Number region1(Number p, Number t) const noexcept {
        return equations(Kind<Number>{}).region1(p, t);
    }
    template <class Number>
    [[nodiscard]] VAPRIX_INLINE constexpr Number region2(Number p, Number t) const noexcept {
        return equations(Kind<Number>{}).region2(p, t);
    }
    template <class Number>
    [[nodiscard]] VAPRIX_INLINE constexpr Number region5(Number p, Number t) const noexcept {
        return equations(Kind<Number>{}).region5(p, t);
    }
};
template <class EquationsOf>
Property(EquationsOf) -> Property<EquationsOf>;
template <class EquationsOf>
Property(EquationsOf, Asked) -> Property<EquationsOf>;

// A property that is the same for every region, or of the variables alone.
template <class Of>
struct Reading {
    Of of;
    Asked asked;
    double factor = 1;  // from the SI unit to that of the export: some failures are scaled too
};
template <class Of>
Reading(Of, Asked) -> Reading<Of>;
template <class Of>
Reading(Of, Asked, double) -> Reading<Of>;

// Of a single phase.
template <const auto& property, class Number>
[[nodiscard]] VAPRIX_INLINE Number single(const StateOf<Number>& state) noexcept {
    if constexpr (requires { property.of; }) {
        return property.of(state);
    } else {
        constexpr Equations<Number> equations = property.equations(Kind<Number>{});
        switch (state.region) {
            case Region::one: return equations.region1(state.p, state.t);
            case Region::two: return equations.region2(state.p, state.t);
            case Region::three: return equations.region3(state);
            case Region::five: return equations.region5(state.p, state.t);
            default: return failed;
        }
    }
}

// The same, and of wet steam by the lever rule: at the qualities 0 and 1 the phases to the last
// digit.
template <const auto& property, class Number>
[[nodiscard]] VAPRIX_INLINE Number mixed(const StateOf<Number>& state) noexcept {
    if constexpr (requires { property.of; }) {
        return property.of(state);
    } else if (state.region != Region::wet) {
        return single<property>(state);
    } else if constexpr (requires { Number::lanes; }) {
        const Number of_liquid = single<property>(liquid_end(state));
        const Number of_vapour = single<property>(vapour_end(state));
        return machine::select(state.x == 1, of_vapour,
                               of_liquid + state.x * (of_vapour - of_liquid));
    } else {
        if (state.x == 0) return single<property>(liquid_end(state));
        const Number of_vapour = single<property>(vapour_end(state));
        if (state.x == 1) return of_vapour;
        const Number of_liquid = single<property>(liquid_end(state));
        return of_liquid + state.x * (of_vapour - of_liquid);
    }
}

// Quality at which the mixture of the two phases has the given value of the property.
template <class Number>
[[nodiscard]] VAPRIX_INLINE Number quality(Number value, Number of_liquid,
                                           Number of_vapour) noexcept {
    return (value - of_liquid) / (of_vapour - of_liquid);
}
template <const auto& property, class Number>
[[nodiscard]] VAPRIX_INLINE Number quality(const StateOf<Number>& wet, Number value) noexcept {
    const Number of_liquid = single<property>(liquid_end(wet));
    return quality(value, of_liquid, single<property>(vapour_end(wet)));
}

namespace property {

template <class N, N (*of)(N, N) noexcept>
N of_dt(const StateOf<N>& state) noexcept {
    return of(state.d, state.t);
}

template <class N>
N given_v(const StateOf<N>& state) noexcept {
    return state.v;
}

// f = u - T s
template <class N, N (*u_of)(N, N) noexcept, N (*s_of)(N, N) noexcept>
N helmholtz(N pressure, N t) noexcept {
    return u_of(pressure, t) - t * s_of(pressure, t);
}

// clang-format 14 takes such lambdas for namespaces.
// clang-format off
inline constexpr Property v{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::v, Region2<N>::v, given_v<N>, Region5<N>::v};
}};
inline constexpr Property h{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::h, Region2<N>::h, of_dt<N, Region3<N>::h>, Region5<N>::h};
}};
inline constexpr Property s{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::s, Region2<N>::s, of_dt<N, Region3<N>::s>, Region5<N>::s};
}};
inline constexpr Property u{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::u, Region2<N>::u, of_dt<N, Region3<N>::u>, Region5<N>::u};
}};
inline constexpr Property f{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{helmholtz<N, Region1<N>::u, Region1<N>::s>,
                        helmholtz<N, Region2<N>::u, Region2<N>::s>, of_dt<N, Region3<N>::f>,
                        helmholtz<N, Region5<N>::u, Region5<N>::s>};
}};
inline constexpr Property g{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::g, Region2<N>::g, of_dt<N, Region3<N>::g>, Region5<N>::g};
}};
inline constexpr Property cp{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::cp, Region2<N>::cp, of_dt<N, Region3<N>::cp>, Region5<N>::cp};
}};
inline constexpr Property cv{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::cv, Region2<N>::cv, of_dt<N, Region3<N>::cv>, Region5<N>::cv};
}};
inline constexpr Property w{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{Region1<N>::w, Region2<N>::w, of_dt<N, Region3<N>::w>, Region5<N>::w};
}};
// clang-format on

// The variables themselves.
inline constexpr Reading p{[](const auto& at) noexcept { return at.p; }, Asked{.p = true}};
inline constexpr Reading T{[](const auto& at) noexcept { return at.t; }, Asked{.t = true}};
inline constexpr Reading x{[](const auto& at) noexcept { return at.x; }, Asked{.wet = true}};

// Region as the exports report it: the saturation line and wet steam as 4, the number of the
// equation.
inline constexpr Reading region{
    [](const auto& at) noexcept {
        return at.region == Region::wet ? 4.0 : static_cast<double>(at.region);
    },
    Asked{}};

// Density, kg/m3: of a single phase as the resolver has formed it, of wet steam that of the mixed
// volumes.
inline constexpr Reading d{
    [](const auto& at) noexcept { return at.region == Region::wet ? 1 / mixed<v>(at) : at.d; },
    Asked{.density = true, .wet = true}};

// Reciprocals that are the result of some exports, down to the rounding.
inline constexpr Reading v_of_d{[](const auto& at) noexcept {
                                    const auto density = d.of(at);
                                    return machine::select(density > 0, 1 / density, failed);
                                },
                                d.asked};
inline constexpr Reading d_of_v{[](const auto& at) noexcept { return 1 / mixed<v>(at); }, v.asked};
inline constexpr Reading v_of_d_of_v{[](const auto& at) noexcept { return 1 / d_of_v.of(at); },
                                     v.asked};

}  // namespace property

// A state of region 1, 2 or 5 with its density, if that is asked for.
template <Asked asked, class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> with_density(StateOf<Number> state) noexcept {
    if constexpr (asked.density) {
        state.d = 1 / single<property::v>(state);
        state.v = 1 / state.d;
    }
    return state;
}

// The other way about: v by the equation, d as its reciprocal.
template <Asked asked, class Number>
[[nodiscard]] VAPRIX_INLINE StateOf<Number> with_volume(StateOf<Number> state) noexcept {
    if constexpr (asked.density) {
        state.v = single<property::v>(state);
        state.d = 1 / state.v;
    }
    return state;
}

}  // namespace vaprix
