// SPDX-License-Identifier: MIT
//
// Region 2, vapour: properties of (p, T).
// Given:    p  pressure, MPa;  t  temperature, K. Region 2 is 273.15 to 1073.15 K, up
//           to the saturation line, the B23 line and 100 MPa; nothing is checked, outside the
//           equation is evaluated as it stands.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (15) to (17) with Tables 10 to 14; it also serves
//           metastable vapour.
#pragma once

#include "regions/tables/region2.hpp"
#include "regions/vapour.hpp"

namespace vaprix {

// gamma = ln pi + sum n0 tau^J0 + sum n pi^I (tau - 0.5)^J, pi = p, tau = 540/T
struct Region2Equation {
    static constexpr auto ideal = polynomial(tables::region2_ideal);
    static constexpr auto residual = polynomial(tables::region2_residual);
    static constexpr double T_star = 540;  // K
    static constexpr double shift = 0.5;
    // 1/T* for the negative powers of tau, in the two roundings that the enthalpy and the other
    // properties have always been published with; they must stay apart, or digits of hosts change.
    static constexpr double T_star_reciprocal_h = 0.0018518518518518;
    static constexpr double T_star_reciprocal = 0.001851851851851852;
};

template <class Number>
struct Region2 : Vapour<Region2Equation, Number> {
    // Backward equations: regions/region2_backward.hpp.
    [[nodiscard]] static Number t_ph(Number p, Number h) noexcept;  // temperature, K
    [[nodiscard]] static Number t_ps(Number p, Number s) noexcept;  // temperature, K
    [[nodiscard]] static Number p_hs(Number h, Number s) noexcept;  // pressure, MPa

    // The same in one subregion.
    [[nodiscard]] static Number t2a_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t2b_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t2c_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t2a_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number t2b_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number t2c_ps(Number p, Number s) noexcept;

    // Highest pressure of subregion 2a of (p, h) and (p, s), MPa.
    static constexpr double p_2a = 4;

    // Divides subregions 2b, which owns it, and 2c of (p, s) and (h, s), kJ/(kg K).
    static constexpr double s_2bc = 5.85;

    // Boundary of subregions 2b and 2c: pressure, MPa, of h. A state on the line belongs to 2b.
    [[nodiscard]] static Number p_b2bc(Number h) noexcept;

    // Whether a state beyond 2a is of subregion 2c, else of 2b.
    [[nodiscard]] VAPRIX_INLINE static machine::Truth<Number> is_2c_ph(Number p,
                                                                       Number h) noexcept {
        return p > p_b2bc(h);
    }
    [[nodiscard]] VAPRIX_INLINE static machine::Truth<Number> is_2c_ps(Number /* p */,
                                                                       Number s) noexcept {
        return s < s_2bc;
    }

    // Boundary of subregions 2a and 2b of (h, s), near 4 MPa: enthalpy, kJ/kg, of s. A state on the
    // line belongs to 2a.
    [[nodiscard]] static Number h_2ab(Number s) noexcept;
};

using region2 = Region2<double>;
extern template class Vapour<Region2Equation, double>;
extern template struct Region2<double>;
VAPRIX_DERIVED(extern template, (double, double), Vapour<Region2Equation, double>);

}  // namespace vaprix
