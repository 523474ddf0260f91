// SPDX-License-Identifier: MIT
//
// Saturated states by density, enthalpy and entropy.
// Given:    d  density, kg/m3;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K), of a
//           saturated phase between 273.15 K and the critical point.
// Returned: the saturation temperature, K, at which the phase has the value given; -99999.0 where
//           it has that value nowhere, and for a NaN.
// Notes:    Saturated liquid is densest at 277.135 K, and the enthalpy of saturated vapour greatest
//           at 508.443 K: the plain functions answer from the warm side, the cold ones from the
//           other. At 623.15 K, where region 3 takes over, values between the two equations' have
//           that temperature. Within 3.7e-5 K of the critical point the densities are estimates,
//           which meet the critical one but not the solved ones: of two temperatures the one of
//           solved densities is returned.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28) and (30).
#pragma once

#include "frame/error_code.hpp"
#include "regions/saturation_line.hpp"
#include "saturation/saturated.hpp"

namespace vaprix::saturation {

[[nodiscard]] double t_d(double d) noexcept;  // liquid above 322 kg/m3, vapour below
[[nodiscard]] double t_d_cold(double d) noexcept;

[[nodiscard]] double t_h_liquid(double h) noexcept;
[[nodiscard]] double t_h_vapour(double h) noexcept;
[[nodiscard]] double t_h_vapour_cold(double h) noexcept;
[[nodiscard]] double t_h(double h) noexcept;  // liquid up to the critical enthalpy, vapour above

[[nodiscard]] double t_s_liquid(double s) noexcept;
[[nodiscard]] double t_s_vapour(double s) noexcept;
[[nodiscard]] double t_s(double s) noexcept;  // liquid up to the critical entropy, vapour above

// Pressure, MPa, density, kg/m3, and specific volume, m3/kg, of a temperature that one of them has
// answered; the failure passes through.
[[nodiscard]] inline double pressure_at(double t) noexcept { return t > 0 ? psat(t) : failed; }
template <Phase phase>
[[nodiscard]] double density_at(double t) noexcept {
    return t > 0 ? density_of<phase>({psat(t), t}) : failed;
}
template <Phase phase>
[[nodiscard]] double volume_at(double t) noexcept {
    return t > 0 ? of<phase, pt::v>({psat(t), t}) : failed;
}

// The codes that tell failures apart: a density below zero from one that no saturated phase has; an
// enthalpy or NaN that is not even one of saturated liquid from one that only the cold vapour has
// not.
[[nodiscard]] ErrorCode density_code(double d) noexcept;
[[nodiscard]] ErrorCode cold_vapour_code(double h) noexcept;

}  // namespace vaprix::saturation
