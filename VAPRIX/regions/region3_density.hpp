// SPDX-License-Identifier: MIT
//
// Density of region 3 from pressure and temperature: root of the basic equation's pressure along
// the isotherm.
// Given:    p  pressure, MPa;  t  temperature, K; nothing is checked.
// Returned: kg/m3;  0.0 where there is no such density or the iteration did not converge.
// Source:   the pressure relation of IAPWS R7-97(2012), Table 31.
#pragma once

#include "frame/elementary.hpp"

namespace vaprix::region3_density {

inline constexpr double densest =
    800;  // kg/m3, above every state of region 3, where the isotherm rises
inline constexpr double last_step = 1e-8;  // relative, after which the error is one of rounding

// Density, kg/m3, from one close to it: Newton's step and one more by the same slope, which is corrected by
// what the first step left, of fourth order; 0 where that is not surely below rounding.
template <class Isotherm, class Number>
[[nodiscard]] VAPRIX_INLINE Number corrected(const Isotherm& isotherm, Number p,
                                             Number d) noexcept {
    constexpr double close = 1e-4;
    const Number slope = isotherm.p_d(d), reciprocal = 1 / slope;
    const Number left = p - isotherm.p(d);
    const Number step = left * reciprocal;
    const Number next = d + step;
    const Number left_then = p - isotherm.p(next);
    const Number of = machine::select(left == 0, Number(1), left);  // 0/0 would raise a flag
    const Number root = next + left_then * reciprocal * (1 + 2 * (left_then / of));
    const auto rises = slope > 0;
    const auto short_step = fabs(step) < close * d;
    const auto straight = fabs(left_then) <= close * fabs(left);
    return machine::select(rises & short_step & straight, root, 0);
}

// Density of the phase that the saturation line gives (p, t), by Newton's method from the published
// volume of (p, t), or from the start value d_start, kg/m3. Within 4e-5 K below the critical
// temperature the saturation line and the basic equation disagree by more than metastable states
// reach: where the equation does not have that phase, the density is that of the other.
[[nodiscard]] double density_pt(double p, double t) noexcept;
[[nodiscard]] double density_pt(double p, double t, double d_start) noexcept;

// Density on that side of the critical density on which d_start, kg/m3, lies, by Newton's method.
[[nodiscard]] double density_beside(double p, double t, double d_start) noexcept;

// The same by the iteration of frame/bracketed_secant.hpp around d_start, which ends at the
// relative step tolerance; by Newton's method where d_start is off by more than 0.1 %.
[[nodiscard]] double d_iterated(double p, double t, double d_start, double tolerance) noexcept;

// Specific volume, m3/kg, at the density of (p, t) from d_start; positive infinity where there is
// none.
[[nodiscard]] double v_iterated(double p, double t, double d_start) noexcept;

}  // namespace vaprix::region3_density
