// SPDX-License-Identifier: MIT
// The basic equations of IAPWS R7-97(2012), term by term in quadruple precision from the published
// tables: regions 1, 2, 3 and 5, the saturation line and the B23 line.
// Units: p MPa, t K, v m3/kg, d kg/m3, energies kJ/kg, s cp cv kJ/(kg K), w m/s.
#pragma once

#include "quad.hpp"

namespace reference {

struct State {
    Quad p, t, v, d, h, u, s, g, f, cp, cv, w;
    Quad v_p, v_t;  // (dv/dp)_T, (dv/dT)_p
    Quad p_d, p_t;  // (dp/dd)_T, (dp/dT)_d
    // sum |terms| / |sum|, the worst of the potential and its first derivatives and of the second
    // ones
    Quad first_condition, second_condition;
};

extern const Quad gas_constant, t_crit, p_crit, d_crit;

State region1(Quad p, Quad t);  // Eq. (7)
State region2(Quad p, Quad t);  // Eq. (15)
State region3(Quad d, Quad t);  // Eq. (28)
State region5(Quad p, Quad t);  // Eq. (32)

// What the rounding of a property is measured against. Most properties: their own size. Energies
// and entropies pass through zero (h, u, s at the triple point, f and g elsewhere), so R T or R is
// added, their distance from an arbitrary zero not being a matter of accuracy; likewise v/T to
// (dv/dT)_p, which changes sign at the density maximum of the cold liquid.
Quad natural_scale(Quad State::*quantity, const State& x);

// Allowed deviation from the exact property in units of that scale: 2e-13, or more where the
// published sums cancel (the hot end of region 1 near saturation, where terms 8000 times the sum of
// a second derivative meet; the dense end of region 3; its critical point): 8 roundings of the
// terms, which no evaluation of the printed coefficients in doubles can promise to beat.
double rounding_tolerance(Quad State::*quantity, const State& x);

Quad psat(Quad t);    // Eq. (30)
Quad tsat(Quad p);    // Eq. (31)
Quad tsat_p(Quad p);  // its derivative, K/MPa
Quad p_b23(Quad t);   // Eq. (5)
Quad t_b23(Quad p);   // Eq. (6)

}  // namespace reference
