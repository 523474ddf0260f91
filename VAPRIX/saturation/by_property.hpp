// SPDX-License-Identifier: MIT
//
// Saturated phases by density, enthalpy and entropy.
// Given:    d  density, kg/m3;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K), of a
//           saturated phase between 273.15 K and the critical point.
// Refused:  a value that the phase has nowhere, and a NaN. The codes tell failures apart: a density
//           below zero, -10003, from one that no saturated phase has, -10057; an enthalpy or NaN
//           that is not even one of saturated liquid, -10037, from one that only the cold vapour has
//           not, -10035.
// Notes:    Saturated liquid is densest at 277.135 K, and the enthalpy of saturated vapour greatest
//           at 508.443 K: the plain resolvers answer from the warm side, the cold ones from the
//           other. At 623.15 K, where region 3 takes over, values between the two equations' have
//           that temperature. Within 3.7e-5 K of the critical point the densities are estimates,
//           which meet the critical one but not the solved ones: of two temperatures the one of
//           solved densities is answered.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28) and (30).
#pragma once

#include "frame/newton.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/saturated_limits.hpp"
#include "saturation/of_line.hpp"

namespace vaprix {

namespace saturation {

// Temperatures, K, at which a phase has the value; not converged where there is none.
[[nodiscard]] NewtonRoot<double> t_liquid_d(double d) noexcept;
[[nodiscard]] NewtonRoot<double> t_cold_liquid_d(double d) noexcept;
[[nodiscard]] NewtonRoot<double> t_vapour_d(double d) noexcept;
[[nodiscard]] NewtonRoot<double> t_liquid_h(double h) noexcept;
[[nodiscard]] NewtonRoot<double> t_vapour_h(double h) noexcept;
[[nodiscard]] NewtonRoot<double> t_cold_vapour_h(double h) noexcept;
[[nodiscard]] NewtonRoot<double> t_liquid_s(double s) noexcept;
[[nodiscard]] NewtonRoot<double> t_vapour_s(double s) noexcept;

template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_at(NewtonRoot<double> t, ErrorCode code) noexcept {
    if (!t.converged) return refused(code);
    const double p = asked.p || asked.single || asked.density ? psat(t.x) : 0;
    return saturated_phase<phase, asked>(wet_state<phases(asked)>(p, t.x));
}

}  // namespace saturation

[[nodiscard]] inline ErrorCode saturated_density_code(double d) noexcept {
    return d < 0 ? ErrorCode::negative_density : ErrorCode::property_range;
}

// Liquid above 322 kg/m3, vapour below.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State saturated_of_d(double d) noexcept {
    using namespace saturation;
    const ErrorCode code = saturated_density_code(d);
    return d > d_crit ? phase_at<Phase::liquid, asked>(t_liquid_d(d), code)
                      : phase_at<Phase::vapour, asked>(t_vapour_d(d), code);
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State cold_phase_of_d(double d) noexcept {
    return saturation::phase_at<phase, asked>(saturation::t_cold_liquid_d(d),
                                              saturated_density_code(d));
}

template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_h(double h) noexcept {
    using namespace saturation;
    return phase == Phase::liquid
               ? phase_at<phase, asked>(t_liquid_h(h), ErrorCode::saturated_liquid_enthalpy_range)
               : phase_at<phase, asked>(t_vapour_h(h), ErrorCode::saturated_vapour_enthalpy_range);
}
template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State cold_phase_of_h(double h) noexcept {
    const ErrorCode code = h >= tables::limits_h1.y_min ? ErrorCode::saturated_vapour_enthalpy_range
                                                        : ErrorCode::saturated_enthalpy_range;
    return saturation::phase_at<phase, asked>(saturation::t_cold_vapour_h(h), code);
}

// Liquid up to the critical enthalpy, vapour above.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State saturated_of_h(double h) noexcept {
    return h > tables::limits_h2.y_crit ? phase_of_h<Phase::vapour, asked>(h)
                                        : phase_of_h<Phase::liquid, asked>(h);
}

template <Phase phase, Asked asked>
[[nodiscard]] VAPRIX_INLINE State phase_of_s(double s) noexcept {
    using namespace saturation;
    const auto t = phase == Phase::liquid ? t_liquid_s(s) : t_vapour_s(s);
    return phase_at<phase, asked>(t, ErrorCode::saturated_entropy_range);
}

// Liquid up to the critical entropy, vapour above.
template <Asked asked>
[[nodiscard]] VAPRIX_INLINE State saturated_of_s(double s) noexcept {
    return s > tables::limits_s2.y_crit ? phase_of_s<Phase::vapour, asked>(s)
                                        : phase_of_s<Phase::liquid, asked>(s);
}

}  // namespace vaprix
