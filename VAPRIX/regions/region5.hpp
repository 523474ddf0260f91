// SPDX-License-Identifier: MIT
//
// Region 5, vapour at high temperature: properties of (p, T).
// Given:    p  pressure, MPa;  t  temperature, K. Region 5 is 1073.15 to 2273.15 K,
//           up to 50 MPa; nothing is checked, outside the equation is evaluated as it stands.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (32) to (34) with Tables 37 to 41 (the 2007 edition).
#pragma once

#include "regions/tables/region5.hpp"
#include "regions/vapour.hpp"

namespace vaprix {

// gamma = ln pi + sum n0 tau^J0 + sum n pi^I tau^J, pi = p, tau = 1000/T
struct Region5Equation {
    static constexpr auto ideal = polynomial(tables::region5_ideal);
    static constexpr auto residual = polynomial(tables::region5_residual);
    static constexpr double T_star = 1000;  // K
    static constexpr double shift = 0;
    static constexpr double T_star_reciprocal_h = 0.001;
    static constexpr double T_star_reciprocal = 0.001;
};

template <class Number>
struct Region5 : Vapour<Region5Equation, Number> {
    // Temperature, K, by search: regions/region5_backward.hpp.
    [[nodiscard]] static Number t_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t_ps(Number p, Number s) noexcept;
};

using region5 = Region5<double>;
extern template class Vapour<Region5Equation, double>;
extern template struct Region5<double>;
VAPRIX_DERIVED(extern template, (double, double), Vapour<Region5Equation, double>);

}  // namespace vaprix
