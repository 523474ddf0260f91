// SPDX-License-Identifier: MIT
//
// Region 3, the near-critical and dense fluid: properties of (density, T).
// Given:    d  density, kg/m3;  t  temperature, K. Region 3 is 623.15 to 863.15 K from the B23 line
//           to 100 MPa; nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eq. (28), Tables 30 to 32.
#pragma once

#include <array>
#include <cstddef>

#include "frame/newton.hpp"
#include "regions/derivatives.hpp"

namespace vaprix::region3 {

[[nodiscard]] double p(double d, double t) noexcept;   // pressure, MPa
[[nodiscard]] double h(double d, double t) noexcept;   // specific enthalpy, kJ/kg
[[nodiscard]] double u(double d, double t) noexcept;   // specific internal energy, kJ/kg
[[nodiscard]] double s(double d, double t) noexcept;   // specific entropy, kJ/(kg K)
[[nodiscard]] double g(double d, double t) noexcept;   // specific Gibbs energy, kJ/kg
[[nodiscard]] double f(double d, double t) noexcept;   // specific Helmholtz energy, kJ/kg
[[nodiscard]] double cp(double d, double t) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double cv(double d, double t) noexcept;  // isochoric heat capacity, kJ/(kg K)
[[nodiscard]] double w(double d, double t) noexcept;   // speed of sound, m/s

// A property by its formula on the derivatives and on the pressure p, MPa.
template <Formula formula>
[[nodiscard]] double derived(double p, double d, double t) noexcept;

// Pressure and enthalpy, or pressure and entropy, with their slopes by density and by temperature,
// or enthalpy and entropy, from shared sums.
[[nodiscard]] TangentPair ph_tangents(double d, double t) noexcept;
[[nodiscard]] TangentPair ps_tangents(double d, double t) noexcept;
[[nodiscard]] TangentPair hs_tangents(double d, double t) noexcept;

// p with its slope in T along the isochore; h and s with their slopes in density along the isotherm.
[[nodiscard]] Tangent p_tangent_t(double d, double t) noexcept;
[[nodiscard]] Tangent h_tangent_d(double d, double t) noexcept;
[[nodiscard]] Tangent s_tangent_d(double d, double t) noexcept;

// One isotherm: the factors that depend on temperature alone are formed once, which is what an
// iteration on the density needs.
class Isotherm {
    std::array<double, 12> c;  // p = sum c[k] d^(k + 1)

    // sum a(k) c[k] d^k
    template <class Weight>
    [[nodiscard]] double sum(double d, Weight a) const noexcept {
        const double d2 = d * d;
        const double d4 = d2 * d2;
        const auto four = [&](std::size_t k) {
            return (a(k) * c[k] + a(k + 1) * c[k + 1] * d) +
                   (a(k + 2) * c[k + 2] + a(k + 3) * c[k + 3] * d) * d2;
        };
        return four(0) + d4 * (four(4) + d4 * four(8));
    }

public:
    explicit Isotherm(double t) noexcept;

    // Pressure, MPa.
    [[nodiscard]] double p(double d) const noexcept {
        return d * sum(d, [](std::size_t) { return 1.0; });
    }

    // (dp/dd)_T, MPa m3/kg.
    [[nodiscard]] double p_d(double d) const noexcept {
        return sum(d, [](std::size_t k) { return static_cast<double>(k + 1); });
    }

    // Helmholtz energy f(d) - f(e), kJ/kg, the integral of 1000 p/d^2 from e to d.
    [[nodiscard]] double f_difference(double d, double e) const noexcept;
};

}  // namespace vaprix::region3
