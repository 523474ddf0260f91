// SPDX-License-Identifier: MIT
//
// Transport and other physical properties of (T, density), O-family.
// Given:    t  temperature, K;  d  density, kg/m3;  wavelength  micrometres.
// Failure:  -99999.0 with code -10003 for a negative density and -10057 for any other state
//           outside; further codes at each function. A state inside for which the property is not
//           answered gives -99999.0 times the factor of its unit, deliberately: the factor has
//           always been the last step on that way.
#pragma once

#include "frame/error_code.hpp"
#include "inverse/td.hpp"
#include "transport/limits_old.hpp"
#include "transport/properties.hpp"
#include "transport/refractive_index.hpp"

namespace vaprix::transport {

template <const Property& property>
[[nodiscard]] double evaluate_td(int region, double t, double d) noexcept {
    double cp = 0;
    if constexpr (property.needs_cp) cp = td::evaluate_in<pt::cp>(region, t, d);
    return property.of({t, d, 1 / d, cp});
}

// Viscosity: regions 1, 2 and 3. Code -10057 for wet steam and region 5, with the factor.
template <const Property& property>
[[nodiscard]] double viscosity_td(double t, double d) noexcept {
    const int region = td::region_checked(t, d);
    if (region == pt::outside) return failed;
    if (region > 3) return fail(ErrorCode::property_range) * property.factor;
    return evaluate_td<property>(region, t, d);
}

// Conductivity, Prandtl number and thermal diffusivity: up to 1073.15 K, beyond which code -10057,
// with the factor. `wet` is the code of wet steam; the sentinel alone if there is none.
template <const Property& property, ErrorCode... wet>
[[nodiscard]] double conductivity_td(double t, double d) noexcept {
    const int region = td::region_checked(t, d);
    if (region == pt::outside) return failed;
    if (region == pt::saturation_line) {
        (store(wet), ...);
        return failed;
    }
    if (t > conductivity_top) return fail(ErrorCode::property_range) * property.factor;
    return evaluate_td<property>(region, t, d);
}

// Dielectric constant: code -10057 also for wet steam and above 1200 K, -10055 above 1073.15 K.
[[nodiscard]] inline double dielectric_td(double t, double d) noexcept {
    const int region = td::region_checked(t, d);
    if (region == pt::outside) return failed;
    if (region == pt::saturation_line) return fail(ErrorCode::property_range);
    return dielectric_checked(t, d);
}

// Refractive index: code -10056 for an argument not above 0 and outside its range, tested first;
// -10057 for wet steam and outside.
[[nodiscard]] inline double refractive_td(double t, double d, double wavelength) noexcept {
    if (!(t > 0 && d > 0 && refracts(t, wavelength))) return fail(ErrorCode::refractive_range);
    const int region = td::region_checked(t, d);
    if (region == pt::outside) return failed;
    if (region == pt::saturation_line) return fail(ErrorCode::property_range);
    return refractive_index(t, d, wavelength);
}

}  // namespace vaprix::transport
