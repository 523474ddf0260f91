// SPDX-License-Identifier: MIT
//
// Transport and other physical properties of a single-phase state, in the units of the exports.
#pragma once

#include "state/properties.hpp"
#include "transport/conductivity.hpp"
#include "transport/dielectric.hpp"
#include "transport/limits.hpp"
#include "transport/refractive_index.hpp"
#include "transport/viscosity.hpp"

namespace vaprix::property {

inline constexpr double micro = 1e6;
inline constexpr double milli = 1000;
inline constexpr Asked of_density{.density = true};
inline constexpr Asked of_density_and_cp{.single = true, .density = true};

// dynamic viscosity, 1e-6 Pa s and Pa s
inline constexpr Reading vis{
    [](const auto& at) noexcept { return transport::viscosity(at.t, at.d); }, of_density};
inline constexpr Reading eta{[](const auto& at) noexcept { return vis.of(at) * micro; }, of_density,
                             micro};

// kinematic viscosity, 1e-6 m2/s and m2/s
inline constexpr Reading vki{[](const auto& at) noexcept { return vis.of(at) * at.v; }, of_density};
inline constexpr Reading vnu{[](const auto& at) noexcept { return vki.of(at) * micro; }, of_density,
                             micro};

// thermal conductivity, W/(m K) and 1e-3 W/(m K)
inline constexpr Reading tcon{
    [](const auto& at) noexcept { return transport::conductivity(at.t, at.d); }, of_density};
inline constexpr Reading tco{[](const auto& at) noexcept { return tcon.of(at) * milli; },
                             of_density, milli};

// Prandtl number eta cp/lambda, with cp in kJ/(kg K)
inline constexpr Reading pr{
    [](const auto& at) noexcept { return vis.of(at) * single<cp>(at) / tcon.of(at) * 1000; },
    of_density_and_cp};

// thermal diffusivity lambda/(d cp), 1e-6 m2/s, with cp in kJ/(kg K)
inline constexpr Reading a{
    [](const auto& at) noexcept { return tcon.of(at) * 1000 / (at.d * single<cp>(at)); },
    of_density_and_cp};

// static dielectric constant
inline constexpr Reading eps{
    [](const auto& at) noexcept { return transport::dielectric_constant(at.t, at.d); }, of_density};

// refractive index at a wavelength, micrometres
struct Refraction {
    Asked asked = of_density;
    [[nodiscard]] static bool defined(const State& at, double wavelength) noexcept {
        return at.t > 0 && at.d > 0 && at.t <= refractive_top && wavelength >= 0.2 &&
               wavelength <= 1.1;
    }
    [[nodiscard]] static double of(const State& at, double wavelength) noexcept {
        return transport::refractive_index(at.t, at.d, wavelength);
    }
};
inline constexpr Refraction n;

}  // namespace vaprix::property
