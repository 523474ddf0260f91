// SPDX-License-Identifier: MIT
//
// Density of region 3 from pressure and temperature, by iteration on the basic equation.
// Given:    p  pressure, MPa;  t  temperature, K; nothing is checked.
// Source:   the pressure relation of IAPWS R7-97(2012), Table 31, solved as
//           frame/bracketed_secant.hpp says.
#pragma once

namespace vaprix::region3 {

struct Density {
    double d;  // kg/m3
    bool converged;
};

// The relative step that ends the iteration everywhere but where a host gives its own.
inline constexpr double density_tolerance = 1e-6;

// Density from the start volume of (p, t).
[[nodiscard]] Density density_pt(double p, double t) noexcept;

// Density from the start value d_start, kg/m3; tolerance is the relative step that ends the
// iteration.
[[nodiscard]] Density density_from(double p, double t, double d_start, double tolerance) noexcept;

// Density of density_from, kg/m3; 0.0 where the iteration did not converge.
[[nodiscard]] double d_iterated(double p, double t, double d_start, double tolerance) noexcept;

// Specific volume, m3/kg, at the iterated density; positive infinity where the iteration did not
// converge.
[[nodiscard]] double v_iterated(double p, double t) noexcept;

// Start subregion 1 to 7 of (p, t) and the start volume, m3/kg, that its fit gives.
[[nodiscard]] int start_subregion(double p, double t) noexcept;
[[nodiscard]] double start_volume(double p, double t, int subregion) noexcept;

}  // namespace vaprix::region3
