// SPDX-License-Identifier: MIT
//
// Temperature of wet steam of (h, s) by the auxiliary equations alone: where an iteration on the
// basic equations starts.
//
// On the saturation line h = alpha + T v dps/dT and s = phi + v dps/dT for either phase and any
// mixture of them, so that h - T s = alpha - T phi whatever the quality.
// Source: IAPWS SR1-86(1992), Eqs. (4) to (9).
#pragma once

namespace vaprix {

struct WetTemperature {
    double t;    // K
    double s_t;  // dphi/dT there, kJ/(kg K2): nearly the slope of the entropy of saturated liquid
};

// Given:    h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K).
// Returned: the temperature, held between 273.15 K and the critical one: within 0.09 K from a
//           quality of 0.1, 0.3 K from 0.01 and 1.4 K below.
[[nodiscard]] WetTemperature wet_temperature_estimate(double h, double s) noexcept;

}  // namespace vaprix
