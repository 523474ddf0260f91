// SPDX-License-Identifier: MIT
//
// Refractive index of water and steam against vacuum.
// Given:    t  temperature, K;  d  density, kg/m3;  wavelength  in vacuum, micrometres; nothing is
//           checked.
// Source:   IAPWS R9-97, Eq. (1), Table 1.
#pragma once

#include "frame/guarded_math.hpp"
#include "transport/tables/refractive_index.hpp"

namespace vaprix::transport {

template <class Number>
[[nodiscard]] Number refractive_index(Number t, Number d, Number wavelength) noexcept;

extern template double refractive_index(double, double, double) noexcept;

// n = sqrt((1 + 2 L)/(1 - L)), L = (n^2 - 1)/(n^2 + 2)
//   = rr (a0 + a1 rr + a2 Tr + a3 lr^2 Tr + a4/lr^2 + a5/(lr^2 - UV^2) + a6/(lr^2 - IR^2)
//     + a7 rr^2)
template <class Number>
Number refractive_index(Number t, Number d, Number wavelength) noexcept {
    using namespace tables::refractive_index;
    constexpr double UV2 = lambda_UV * lambda_UV;
    constexpr double IR2 = lambda_IR * lambda_IR;
    const Number tr = t / T_star;
    const Number r = d / rho_star;
    const Number l = wavelength / lambda_star;
    const Number l2 = l * l;
    const Number L = r * (a0 + r * (a1 + r * a7) + tr * (a2 + a3 * l2) + a4 / l2 + a5 / (l2 - UV2) +
                          a6 / (l2 - IR2));
    return signed_sqrt((1 + 2 * L) / (1 - L));
}

}  // namespace vaprix::transport
