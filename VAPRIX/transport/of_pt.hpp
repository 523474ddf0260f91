// SPDX-License-Identifier: MIT
//
// Transport and other physical properties of (p, T): B-family at the volume of the region's
// equation, in region 3 the backward one; O-family at the O-family density.
// Given:    p  pressure, MPa;  t  temperature, K;  wavelength  micrometres.
// Failure:  -99999.0; each function says its codes and its answers on the saturation line and above
//           the range of the correlation, which differ and on which hosts have come to rely.
#pragma once

#include <limits>

#include "frame/error_code.hpp"
#include "pt/o_family.hpp"
#include "pt/region_given.hpp"
#include "pt/region_pt.hpp"
#include "transport/limits.hpp"
#include "transport/properties.hpp"
#include "transport/refractive_index.hpp"

namespace vaprix::transport {

// The property at a density, kg/m3, and its reciprocal, in a region that has been settled.
template <const Property& property>
[[nodiscard]] double evaluate(int region, double p, double t, double d, double v) noexcept {
    double cp = 0;
    if constexpr (property.needs_cp) {
        switch (region) {
            case 1: cp = region1::cp(p, t); break;
            case 2: cp = region2::cp(p, t); break;
            case 5: cp = region5::cp(p, t); break;
            default: cp = region3::cp(d, t);  // the critical point counts as the saturation line
        }
    }
    return property.of({t, d, v, cp});
}

template <const Property& property>
[[nodiscard]] double evaluate_b(int region, double p, double t) noexcept {
    const double v = pt::volume_in(region, p, t);
    return evaluate<property>(region, p, t, 1 / v, v);
}

// Viscosity, without a code. B: 0.0 on the saturation line; O: -99999.0 there. Both 0.0 above
// 1173.15 K, -99999.0 above 1273.15 K.
template <const Property& property>
[[nodiscard]] double viscosity_b(double p, double t) noexcept {
    const int region = pt::region_pt(p, t);
    if (region == pt::outside || t > viscosity_zero_top) return failed;
    if (region == pt::saturation_line || t > viscosity_top) return 0.0;
    return evaluate_b<property>(region, p, t);
}

template <const Property& property>
[[nodiscard]] double viscosity_o(double p, double t) noexcept {
    const int region = pt::region_pt(p, t);
    if (region == pt::outside || region == pt::saturation_line) return failed;
    if (t > viscosity_top) return t > viscosity_zero_top ? failed : 0.0;
    const double d = pt::d_o_in(region, p, t);
    return d > 0 ? evaluate<property>(region, p, t, d, 1 / d) : failed;
}

// Viscosity, Pa s, at the volume v, m3/kg. Region 0 is determined from (p, t) and written back; the
// result is left as it is outside the range, on the saturation line and above 1173.15 K. Any other
// region is taken as it is, without a check.
inline void viscosity_given(double p, double v, double t, int& region, double& result) noexcept {
    if (region == pt::outside) {
        region = pt::region_pt(p, t);
        if (region == pt::outside || region == pt::saturation_line || t > viscosity_top) return;
    }
    result = viscosity(t, 1 / v);
}

// What the B-family answers for conductivity and Prandtl number in region 5 and on the saturation
// line, deliberately: the correlation at the infinite density 1/0, where the viscosity is
// infinity less infinity.
inline constexpr double infinitely_dense_tco = std::numeric_limits<double>::infinity();
inline constexpr double infinitely_dense_pr = std::numeric_limits<double>::quiet_NaN();

// Conductivity and Prandtl number, B-family, without a code.
template <const Property& property, const double& infinitely_dense>
[[nodiscard]] double conductivity_b(double p, double t) noexcept {
    const int region = pt::region_pt(p, t);
    switch (region) {
        case 1:
        case 2:
        case 3: return evaluate_b<property>(region, p, t);
        case pt::outside: return failed;
        default: return infinitely_dense;
    }
}

// O-family: region and density of (p, t); 0.0 where there is none, with code -10003, the one of a
// negative density, as which the failure of the density has always been taken.
struct Dense {
    int region;
    double d;
};
[[nodiscard]] inline Dense density_o(double p, double t) noexcept {
    const int region = pt::region_pt(p, t);
    const double d = pt::d_o_in(region, p, t);
    if (d > 0) return {region, d};
    store(ErrorCode::negative_density);
    return {region, 0.0};
}

// Conductivity, Prandtl number and thermal diffusivity, O-family: code -10003 without a density,
// -10057 outside 273.15 to 1073.15 K. A failure has the factor of the unit: -99999000.0 for
// 1e-3 W/(m K).
template <const Property& property>
[[nodiscard]] double conductivity_o(double p, double t) noexcept {
    const auto [region, d] = density_o(p, t);
    if (!(d > 0)) return failed * property.factor;
    if (!(t >= T_min && t <= conductivity_top)) {
        return fail(ErrorCode::property_range) * property.factor;
    }
    return evaluate<property>(region, p, t, d, 1 / d);
}

// Dielectric constant. B: up to 1200 K, without a code. O: code -10003 without a density, -10055
// above 1073.15 K, -10057 above 1200 K.
[[nodiscard]] inline double dielectric_b(double p, double t) noexcept {
    const int region = pt::region_pt(p, t);
    if (region == pt::outside || region == pt::saturation_line || t > dielectric_top) return failed;
    return evaluate_b<eps>(region, p, t);
}

[[nodiscard]] inline double dielectric_o(double p, double t) noexcept {
    const double d = density_o(p, t).d;
    return d > 0 ? dielectric_checked(t, d) : failed;
}

// Refractive index, up to 773.15 K, 0.2 to 1.1 micrometres. B: without a code. O: code -10003
// without a density, -10057 outside.
[[nodiscard]] inline double refractive_b(double p, double t, double wavelength) noexcept {
    const int region = pt::region_pt(p, t);
    if (region == pt::outside || region == pt::saturation_line) return failed;
    if (!refracts(t, wavelength)) return failed;
    return refractive_index(t, 1 / pt::volume_in(region, p, t), wavelength);
}

[[nodiscard]] inline double refractive_o(double p, double t, double wavelength) noexcept {
    const double d = density_o(p, t).d;
    if (!(d > 0)) return failed;
    if (!refracts(t, wavelength)) return fail(ErrorCode::property_range);
    return refractive_index(t, d, wavelength);
}

}  // namespace vaprix::transport
