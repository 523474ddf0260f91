// SPDX-License-Identifier: MIT
//
// Coexisting densities of region 3, on the saturation line from 623.15 K to the critical point.
#pragma once

namespace vaprix {

// Saturated density, kg/m3, of t, K, by the auxiliary equations alone: an estimate, good to 0.1 %
// away from the critical point.
// Source: IAPWS SR1-86(1992), Eqs. (2) and (3).
[[nodiscard]] double d_liquid_estimate(double t) noexcept;
[[nodiscard]] double d_vapour_estimate(double t) noexcept;

struct SaturatedDensities {
    double vapour;  // kg/m3
    double liquid;  // kg/m3
    double t;       // saturation temperature, K
};

// Densities that coexist at t, K, by the region-3 equation: equal pressure and equal Gibbs energy
// on both sides. The caller has put (t, p) on the saturation line above 623.15 K; nothing is
// checked.
// Notes:  within 1e-5 MPa of the critical pressure the estimates at tsat(p) stand for the solution,
//         deliberately; at the critical pressure itself both densities are 322 kg/m3.
// Source: IAPWS R7-97(2012), Table 31 (Maxwell criterion).
[[nodiscard]] SaturatedDensities dsat3(double t, double p) noexcept;

}  // namespace vaprix
