// SPDX-License-Identifier: MIT
#include "transport/refractive_index.hpp"

#include "frame/guarded_math.hpp"
#include "transport/tables/refractive_index.hpp"

namespace vaprix::transport {

// n = sqrt((1 + 2 L)/(1 - L)), L = (n^2 - 1)/(n^2 + 2)
//   = rr (a0 + a1 rr + a2 Tr + a3 lr^2 Tr + a4/lr^2 + a5/(lr^2 - UV^2) + a6/(lr^2 - IR^2)
//     + a7 rr^2)
double refractive_index(double t, double d, double wavelength) noexcept {
    using namespace tables::refractive_index;
    constexpr double UV2 = lambda_UV * lambda_UV;
    constexpr double IR2 = lambda_IR * lambda_IR;
    const double tr = t / T_star;
    const double r = d / rho_star;
    const double l = wavelength / lambda_star;
    const double l2 = l * l;
    const double L = r * (a0 + r * (a1 + r * a7) + tr * (a2 + a3 * l2) + a4 / l2 + a5 / (l2 - UV2) +
                          a6 / (l2 - IR2));
    return signed_sqrt((1 + 2 * L) / (1 - L));
}

}  // namespace vaprix::transport
