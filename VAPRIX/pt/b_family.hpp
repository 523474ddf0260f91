// SPDX-License-Identifier: MIT
//
// B-family of (p, T): the basic equations directly, region 3 at the volume of the backward
// equations.
// Given:    p  pressure, MPa;  t  temperature, K.
// Failure:  -99999.0 outside the range of validity; no code. On the saturation line the answers
//           differ, which hosts have come to rely on: 0.0 for v, h, s, cp and w, positive infinity
//           for the density, -99999.0 for cv, u, f, g and every derived property.
// Source:   IAPWS R7-97(2012), Tables 3, 12, 31 and 41; IAPWS SR5-05(2016) for the volume of region
//           3.
#pragma once

#include "frame/error_code.hpp"
#include "pt/region_given.hpp"
#include "pt/region_pt.hpp"

namespace vaprix::pt {

// A property that the saturation line does not have.
template <const auto& property>
[[nodiscard]] double single_phase_b(double p, double t) noexcept {
    const int region = region_pt(p, t);
    return is_single_phase(region) ? evaluate_in<property>(region, p, t) : failed;
}

// The same, with a code on failure.
template <const auto& property, ErrorCode code>
[[nodiscard]] double single_phase_b(double p, double t) noexcept {
    const int region = region_pt(p, t);
    return is_single_phase(region) ? evaluate_in<property>(region, p, t) : fail(code);
}

// Region as the exports report it.
[[nodiscard]] double region_reported(double p, double t) noexcept;

[[nodiscard]] double v_b(double p, double t) noexcept;   // specific volume, m3/kg
[[nodiscard]] double d_b(double p, double t) noexcept;   // density, kg/m3
[[nodiscard]] double h_b(double p, double t) noexcept;   // specific enthalpy, kJ/kg
[[nodiscard]] double s_b(double p, double t) noexcept;   // specific entropy, kJ/(kg K)
[[nodiscard]] double cp_b(double p, double t) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double cv_b(double p, double t) noexcept;  // isochoric heat capacity, kJ/(kg K)
[[nodiscard]] double w_b(double p, double t) noexcept;   // speed of sound, m/s
[[nodiscard]] double u_b(double p, double t) noexcept;   // specific internal energy, kJ/kg
[[nodiscard]] double f_b(double p, double t) noexcept;   // specific Helmholtz energy, kJ/kg
[[nodiscard]] double g_b(double p, double t) noexcept;   // specific Gibbs energy, kJ/kg

}  // namespace vaprix::pt
