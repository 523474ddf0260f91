// SPDX-License-Identifier: MIT
//
// Specific volume of region 3 from pressure and temperature by the published backward equations.
// Given:    p  pressure, MPa;  t  temperature, K, in region 3; nothing is checked.
// Returned: m3/kg.
// Source:   IAPWS SR5-05(2016).
#pragma once

namespace vaprix::region3 {

// clang-format off
enum class Subregion { a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t, u, v, w, x, y, z };
// clang-format on

// Subregion of (p, t): Tables 2 and 10. On the saturation line itself the liquid's.
[[nodiscard]] Subregion subregion_pt(double p, double t) noexcept;

// The equation of one subregion: Eq. (4), for 3n Eq. (5).
[[nodiscard]] double v_subregion(Subregion subregion, double p, double t) noexcept;

// Volume of (p, t). Close to the critical point, in subregions 3u to 3z, the auxiliary equations
// are off by up to 1.8 %: there the density iteration on the basic equation is used instead,
// deliberately; positive infinity if it does not converge.
[[nodiscard]] double v_pt(double p, double t) noexcept;

}  // namespace vaprix::region3
