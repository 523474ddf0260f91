// SPDX-License-Identifier: MIT
//
// Transport and other physical properties of the saturated liquid and vapour by temperature.
// Given:    t  temperature, K, 273.15 to 647.096;  wavelength  micrometres.
// Failure:  -99999.0 with code -10019 outside, -10057 for a NaN, unless a function says otherwise.
#pragma once

#include "frame/error_code.hpp"
#include "saturation/saturated.hpp"
#include "transport/limits.hpp"
#include "transport/properties.hpp"
#include "transport/refractive_index.hpp"

namespace vaprix::transport {

using saturation::Phase;

// Whether t is on the saturation line, with the code stored if not.
[[nodiscard]] inline bool on_line(double t) noexcept {
    if (t >= T_min && t <= T_crit) return true;
    store(t < T_min || t > T_crit ? ErrorCode::saturation_temperature_range
                                  : ErrorCode::property_range);
    return false;
}

template <Phase phase, const Property& property>
[[nodiscard]] double saturated(double t) noexcept {
    if (!on_line(t)) return failed;
    const pt::SaturatedState state(psat(t), t);
    const double d = saturation::density_of<phase>(state);
    double cp = 0;
    if constexpr (property.needs_cp) cp = saturation::of<phase, pt::cp>(state);
    return property.of({t, d, 1 / d, cp});
}

// At the saturated density that is answered up to 1e-9 K above the critical temperature: 322 kg/m3
// within 1e-9 K of it. `outside` is the code of any other temperature; the sentinel alone if there
// is none.
template <Phase phase, const Property& property, ErrorCode... outside>
[[nodiscard]] double at_saturated_density(double t) noexcept {
    const double d = saturation::d_t<phase>(t);
    if (d > 0) return property.of({t, d, 1 / d, 0});
    (store(outside), ...);
    return failed;
}

// Refractive index; code -10057 for a wavelength outside 0.2 to 1.1 micrometres, too.
template <Phase phase>
[[nodiscard]] double refractive_saturated(double t, double wavelength) noexcept {
    if (!on_line(t)) return failed;
    if (!refracts(t, wavelength)) return fail(ErrorCode::property_range);
    return refractive_index(t, saturation::density_of<phase>({psat(t), t}), wavelength);
}

}  // namespace vaprix::transport
