// SPDX-License-Identifier: MIT
//
// The transport and other physical properties in the units of the exports, each as a function of a
// resolved single-phase state.
#pragma once

#include "transport/conductivity.hpp"
#include "transport/dielectric.hpp"
#include "transport/viscosity.hpp"

namespace vaprix::transport {

struct State {
    double t;   // K
    double d;   // kg/m3
    double v;   // m3/kg
    double cp;  // kJ/(kg K); only for properties that need it
};

struct Property {
    double (*of)(const State&) noexcept;
    double factor = 1;      // from the SI unit to that of the export: some failures are scaled too
    bool needs_cp = false;  // State::cp is read
};

inline constexpr double micro = 1e6;
inline constexpr double milli = 1000;

// dynamic viscosity, 1e-6 Pa s and Pa s
inline constexpr Property eta{[](const State& x) noexcept { return viscosity(x.t, x.d) * micro; },
                              micro};
inline constexpr Property vis{[](const State& x) noexcept { return viscosity(x.t, x.d); }};

// kinematic viscosity, 1e-6 m2/s and m2/s
inline constexpr Property vnu{
    [](const State& x) noexcept { return viscosity(x.t, x.d) * x.v * micro; }, micro};
inline constexpr Property vki{[](const State& x) noexcept { return viscosity(x.t, x.d) * x.v; }};

// thermal conductivity, 1e-3 W/(m K) and W/(m K)
inline constexpr Property tco{
    [](const State& x) noexcept { return conductivity(x.t, x.d) * milli; }, milli};
inline constexpr Property tcon{[](const State& x) noexcept { return conductivity(x.t, x.d); }};

// Prandtl number eta cp/lambda, with cp in kJ/(kg K)
inline constexpr Property pr{[](const State& x) noexcept {
                                 return viscosity(x.t, x.d) * x.cp / conductivity(x.t, x.d) * 1000;
                             },
                             1, true};

// thermal diffusivity lambda/(d cp), 1e-6 m2/s, with cp in kJ/(kg K)
inline constexpr Property a{
    [](const State& x) noexcept { return conductivity(x.t, x.d) * 1000 / (x.d * x.cp); }, 1, true};

// static dielectric constant
inline constexpr Property eps{
    [](const State& x) noexcept { return dielectric_constant(x.t, x.d); }};

}  // namespace vaprix::transport
