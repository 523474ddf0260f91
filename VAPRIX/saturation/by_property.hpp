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
[[nodiscard]] inline State phase_at(NewtonRoot<double> t, ErrorCode code) noexcept {
    if (!t.converged) return refused(code);
    constexpr bool evaluated = asked.single || asked.density;
    constexpr bool is_liquid = phase == Phase::liquid;
    const double p = asked.p || evaluated ? psat(t.x) : 0;
    State state = gibbs_state(is_liquid ? Region::one : Region::two, p, t.x);
    if (t.x > T_13) {
        state.region = Region::three;
        if constexpr (evaluated) {
            const SaturatedDensities d = dsat3(t.x, p);
            state.d = is_liquid ? d.liquid : d.vapour;
            state.v = 1 / state.d;
        }
    } else if constexpr (asked.density) {
        state.v = is_liquid ? region1::v(p, t.x) : region2::v(p, t.x);
        state.d = 1 / state.v;
    }
    return state;
}

}  // namespace saturation

[[nodiscard]] inline ErrorCode saturated_density_code(double d) noexcept {
    return d < 0 ? ErrorCode::negative_density : ErrorCode::property_range;
}

// Liquid above 322 kg/m3, vapour below.
template <Asked asked>
[[nodiscard]] inline State saturated_of_d(double d) noexcept {
    const ErrorCode code = saturated_density_code(d);
    if (d > d_crit) {
        return saturation::phase_at<Phase::liquid, asked>(saturation::t_liquid_d(d), code);
    }
    return saturation::phase_at<Phase::vapour, asked>(saturation::t_vapour_d(d), code);
}
template <Asked asked>
[[nodiscard]] inline State cold_liquid_of_d(double d) noexcept {
    return saturation::phase_at<Phase::liquid, asked>(saturation::t_cold_liquid_d(d),
                                                      saturated_density_code(d));
}

template <Asked asked>
[[nodiscard]] inline State liquid_of_h(double h) noexcept {
    return saturation::phase_at<Phase::liquid, asked>(saturation::t_liquid_h(h),
                                                      ErrorCode::saturated_liquid_enthalpy_range);
}
template <Asked asked>
[[nodiscard]] inline State vapour_of_h(double h) noexcept {
    return saturation::phase_at<Phase::vapour, asked>(saturation::t_vapour_h(h),
                                                      ErrorCode::saturated_vapour_enthalpy_range);
}
template <Asked asked>
[[nodiscard]] inline State cold_vapour_of_h(double h) noexcept {
    const ErrorCode code = h >= tables::limits_h1.y_min ? ErrorCode::saturated_vapour_enthalpy_range
                                                        : ErrorCode::saturated_enthalpy_range;
    return saturation::phase_at<Phase::vapour, asked>(saturation::t_cold_vapour_h(h), code);
}

// Liquid up to the critical enthalpy, vapour above.
template <Asked asked>
[[nodiscard]] inline State saturated_of_h(double h) noexcept {
    return h > tables::limits_h2.y_crit ? vapour_of_h<asked>(h) : liquid_of_h<asked>(h);
}

template <Asked asked>
[[nodiscard]] inline State liquid_of_s(double s) noexcept {
    return saturation::phase_at<Phase::liquid, asked>(saturation::t_liquid_s(s),
                                                      ErrorCode::saturated_entropy_range);
}
template <Asked asked>
[[nodiscard]] inline State vapour_of_s(double s) noexcept {
    return saturation::phase_at<Phase::vapour, asked>(saturation::t_vapour_s(s),
                                                      ErrorCode::saturated_entropy_range);
}

// Liquid up to the critical entropy, vapour above.
template <Asked asked>
[[nodiscard]] inline State saturated_of_s(double s) noexcept {
    return s > tables::limits_s2.y_crit ? vapour_of_s<asked>(s) : liquid_of_s<asked>(s);
}

}  // namespace vaprix
