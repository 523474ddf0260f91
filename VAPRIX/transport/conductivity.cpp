// SPDX-License-Identifier: MIT
#include "transport/conductivity.hpp"

#include <cmath>

#include "frame/guarded_math.hpp"
#include "transport/tables/conductivity.hpp"

namespace vaprix::transport {
namespace {

using namespace tables::conductivity;

// sqrt(Tr) sum a_k Tr^k, given both
double dilute(double tr, double root) noexcept {
    return root * (a0 + tr * (a1 + tr * (a2 + tr * a3)));
}

// b0 + b1 rr + b2 exp(B1 (rr + B2)^2)
double dense(double r) noexcept {
    const double shifted = r + B2;
    return b0 + b1 * r + b2 * clamped_exp(B1 * (shifted * shifted));
}

// (d1/Tr^10 + d2) rr^(9/5) exp(C1 (1 - rr^(14/5)))
double compressed(double tr, double r) noexcept {
    const double y = 1 / tr;
    const double y2 = y * y;
    const double y4 = y2 * y2;
    const double power = std::pow(r, 1.8);
    return (d1 * (y4 * y4 * y2) + d2) * power * clamped_exp(C1 * (1 - power * r));
}

// d3 S rr^Q exp(Q/(1 + Q) (1 - rr^(1 + Q))): the region around the critical point
double critical(double t, double r) noexcept {
    const double distance = std::fabs(t - T_star) / T_star + C4;
    const double reciprocal = 1 / std::pow(distance, 0.6);
    const double Q = 2 + C5 * reciprocal;
    const double S = t >= T_star ? 1 / distance : C6 * reciprocal;
    const double power = std::pow(r, Q);
    return d3 * S * power * clamped_exp(Q / (1 + Q) * (1 - power * r));
}

// d4 exp(C2 Tr^(3/2) + C3/rr^5), left out where it is smaller than 1e-85
double liquid(double tr, double root, double r) noexcept {
    if (r < 0.5) return 0;
    const double r2 = r * r;
    return d4 * clamped_exp(C2 * (tr * root) + C3 / (r2 * r2 * r));
}

}  // namespace

double conductivity(double t, double d) noexcept {
    const double tr = t / T_star;
    const double r = d / rho_star;
    const double root = signed_sqrt(tr);
    return dilute(tr, root) + dense(r) + (compressed(tr, r) + critical(t, r) + liquid(tr, root, r));
}

}  // namespace vaprix::transport
