// SPDX-License-Identifier: MIT
//
// O-family of (p, T): every state consistent with the basic equations, the density of region 3 by
// iteration.
// Given:    p  pressure, MPa;  t  temperature, K.
// Failure:  -99999.0 and code -10055 outside the range of validity.
// Notes:    on the saturation line the density fails as it does outside, while the other properties
//           are those of the saturated liquid and store the code 0; no other success but that of
//           the fugacity touches the code.
// Source:   IAPWS R7-97(2012), Tables 3, 12, 31 and 41.
#pragma once

#include <cmath>

#include "frame/error_code.hpp"
#include "pt/properties.hpp"
#include "pt/region_pt.hpp"

namespace vaprix::pt {

// Density, kg/m3, of a state of region 3; exactly 322 at the critical point, 0.0 should the
// iteration not converge.
[[nodiscard]] double density3(double p, double t) noexcept;

[[nodiscard]] inline bool at_critical_point(double p, double t) noexcept {
    constexpr double near = 1e-9;  // K and MPa
    return std::fabs(t - T_crit) < near && std::fabs(p - p_crit) < near;
}

// A property at (T, d) with the density d of d_o, which the saturation line does not have.
// Failure: code no_density where d_o fails, -10057 for a density of 0.0.
template <const auto& property, ErrorCode no_density>
[[nodiscard]] double at_density_o(double p, double t) noexcept {
    switch (region_pt(p, t)) {
        case 1: return property.region1(p, t);
        case 2: return property.region2(p, t);
        case 3: {
            const double d = density3(p, t);
            return d > 0 ? property.dense(p, d, t) : fail(ErrorCode::property_range);
        }
        case 5: return property.region5(p, t);
        default: return at_critical_point(p, t) ? property.dense(p, d_crit, t) : fail(no_density);
    }
}

// Density, kg/m3. Exactly 322 within 1e-9 K and 1e-9 MPa of the critical point; 0.0, without a
// code, should the iteration in region 3 not converge.
[[nodiscard]] double d_o(double p, double t) noexcept;

// The same where the region of (p, t) has been settled.
[[nodiscard]] double d_o_in(int region, double p, double t) noexcept;

[[nodiscard]] double v_o(double p, double t) noexcept;   // specific volume, m3/kg
[[nodiscard]] double h_o(double p, double t) noexcept;   // specific enthalpy, kJ/kg
[[nodiscard]] double s_o(double p, double t) noexcept;   // specific entropy, kJ/(kg K)
[[nodiscard]] double cp_o(double p, double t) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double cv_o(double p, double t) noexcept;  // isochoric heat capacity, kJ/(kg K)
[[nodiscard]] double w_o(double p, double t) noexcept;   // speed of sound, m/s
[[nodiscard]] double u_o(double p, double t) noexcept;   // specific internal energy, kJ/kg
[[nodiscard]] double f_o(double p, double t) noexcept;   // specific Helmholtz energy, kJ/kg
[[nodiscard]] double g_o(double p, double t) noexcept;   // specific Gibbs energy, kJ/kg

// Fugacity, MPa, of the saturated liquid on the saturation line. Stores 0 on success; on failure
// -10001 for a temperature below the range, -10002 for a pressure not above 0, else -10055.
[[nodiscard]] double fugacity_o(double p, double t) noexcept;

}  // namespace vaprix::pt
