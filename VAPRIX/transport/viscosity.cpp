// SPDX-License-Identifier: MIT
#include "transport/viscosity.hpp"

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "transport/tables/viscosity.hpp"

namespace vaprix::transport {
namespace {

constexpr double mu_star = 1e-6;  // Pa s
constexpr double T_star_reciprocal = 1 / T_crit;
constexpr double d_star_reciprocal = 1 / d_crit;

// mu0 = 100 sqrt(Tr) / sum H_i y^i with y = 1/Tr
constexpr auto dilute = polynomial(tables::viscosity::dilute);
constexpr auto dilute_y = d_y(dilute);

// mu1 = exp(rr sum H_ij (1/Tr - 1)^i (rr - 1)^j); x = rr - 1, which is known last
constexpr auto dense = transposed(polynomial(tables::viscosity::dense));
constexpr auto dense_x = d_x(dense);
constexpr auto dense_y = d_y(dense);

struct Reduced {
    double y, r;  // 1/Tr and rr
    Reduced(double t, double d) noexcept : y(T_crit / t), r(d * d_star_reciprocal) {}

    // mu0 mu1 mu*, given the two sums
    [[nodiscard]] double viscosity(double t, double of_dilute, double of_dense) const noexcept {
        const double mu0 = 100 * signed_sqrt(t * T_star_reciprocal) / of_dilute;
        return mu0 * clamped_exp(r * of_dense) * mu_star;
    }
};

}  // namespace

double viscosity(double t, double d) noexcept {
    const Reduced at(t, d);
    return at.viscosity(t, evaluate<dilute>(0.0, at.y), evaluate<dense>(at.r - 1, at.y - 1));
}

// d(ln mu)/dT = (1/2 + y (sum0_y/sum0 - rr sum1_y))/T
double viscosity_t(double t, double d) noexcept {
    const Reduced at(t, d);
    const auto [of_dilute, by_y] = evaluate<dilute, dilute_y>(0.0, at.y);
    const auto [of_dense, dense_by_y] = evaluate<dense, dense_y>(at.r - 1, at.y - 1);
    return at.viscosity(t, of_dilute, of_dense) *
           (0.5 + at.y * (by_y / of_dilute - at.r * dense_by_y)) / t;
}

// d(ln mu)/dv = -d rr (sum1 + rr sum1_x), as drr/dv = -d rr
double viscosity_v(double t, double d) noexcept {
    const Reduced at(t, d);
    const auto [of_dense, by_r] = evaluate<dense, dense_x>(at.r - 1, at.y - 1);
    return -at.viscosity(t, evaluate<dilute>(0.0, at.y), of_dense) * d * at.r *
           (of_dense + at.r * by_r);
}

}  // namespace vaprix::transport
