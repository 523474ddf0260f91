// SPDX-License-Identifier: MIT
// States of the basic equations in quadruple precision, and how exactly doubles can reproduce them.
#pragma once

#include <algorithm>

#include "published.hpp"

namespace reference {

using published::magnitude;
using published::Quad;

struct State {
    Quad p, t, v, d, h, u, s, g, f, cp, cv, w;
    Quad v_p, v_t;  // (dv/dp)_T, (dv/dT)_p
    Quad p_d, p_t;  // (dp/dd)_T, (dp/dT)_d
    Quad first_condition, second_condition;
};

inline const Quad gas_constant = published::State<Quad>::R();
inline const Quad t_crit = published::number<Quad>("647.096"), p_crit = 22.064, d_crit = 322;

inline State state(int region, Quad p_or_d, Quad t) {
    const published::State<Quad> x(region, p_or_d, t);
    return {x.p(),
            x.t,
            x.v(),
            x.d(),
            x.h(),
            x.u(),
            x.s(),
            x.g(),
            x.f(),
            x.cp(),
            x.cv(),
            x.w(),
            x.v_p(),
            x.v_t(),
            x.p_d(),
            x.p_t(),
            x.first_condition(),
            x.second_condition()};
}
inline State region1(Quad p, Quad t) { return state(1, p, t); }
inline State region2(Quad p, Quad t) { return state(2, p, t); }
inline State region3(Quad d, Quad t) { return state(3, d, t); }
inline State region5(Quad p, Quad t) { return state(5, p, t); }

inline Quad psat(Quad t) { return published::psat(t); }
inline Quad tsat(Quad p) { return published::tsat(p); }
inline Quad tsat_p(Quad p) { return published::tsat_p(p); }
inline Quad p_b23(Quad t) { return published::p_b23(t); }
inline Quad t_b23(Quad p) { return published::t_b23(p); }

inline bool one_of(Quad State::*quantity, std::initializer_list<Quad State::*> these) {
    return std::find(these.begin(), these.end(), quantity) != these.end();
}

// What the rounding of a property is measured against. Most properties: their own size. Energies
// and entropies pass through zero (h, u, s at the triple point, f and g elsewhere), so R T or R is
// added, their distance from an arbitrary zero not being a matter of accuracy; likewise v/T to
// (dv/dT)_p, which changes sign at the density maximum of the cold liquid.
inline Quad natural_scale(Quad State::*quantity, const State& x) {
    const Quad size = magnitude(x.*quantity);
    if (one_of(quantity, {&State::h, &State::u, &State::g, &State::f}))
        return size + gas_constant * x.t;
    if (quantity == &State::s) return size + gas_constant;
    if (quantity == &State::v_t) return size + x.v / x.t;
    return size;
}

// Allowed deviation from the exact property in units of that scale: 2e-13, or more where the
// published sums cancel (the hot end of region 1 near saturation, where terms 8000 times the sum of
// a second derivative meet; the dense end of region 3; its critical point): 8 roundings of the
// terms, which no evaluation of the printed coefficients in doubles can promise to beat.
inline double rounding_tolerance(bool second, const State& x) {
    constexpr double floor = 2e-13, per_condition = 8 * 0x1p-53;
    const Quad condition = second ? x.second_condition : x.first_condition;
    return std::max(floor, per_condition * static_cast<double>(condition));
}
inline double rounding_tolerance(Quad State::*quantity, const State& x) {
    return rounding_tolerance(one_of(quantity, {&State::cp, &State::cv, &State::w, &State::v_p,
                                                &State::v_t, &State::p_d, &State::p_t}),
                              x);
}

}  // namespace reference
