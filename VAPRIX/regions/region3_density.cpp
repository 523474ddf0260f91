// SPDX-License-Identifier: MIT
#include "regions/region3_density.hpp"

#include <algorithm>
#include <limits>

#include "frame/bracketed_newton.hpp"
#include "frame/bracketed_secant.hpp"
#include "frame/constants.hpp"
#include "frame/elementary.hpp"
#include "regions/region3.hpp"
#include "regions/region3_volume.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::region3_density {
namespace {

// Where on an isotherm a root is looked for. Below the critical temperature the isotherm falls
// between the two phases; there the root lies towards the far end of the side, whatever the
// pressure.
struct Side {
    double low;       // kg/m3
    double high;      // kg/m3
    double p_beyond;  // MPa, added to the pressure where the isotherm falls
};
constexpr double far = 1e9;  // MPa, beyond the pressures of any isotherm
constexpr Side whole{0, densest, 0};
constexpr Side vapour{0, d_crit, far};
constexpr Side liquid{d_crit, densest, -far};

constexpr Side side_of(double d) noexcept { return d > d_crit ? liquid : vapour; }

// The side of the phase that the saturation line gives.
Side side_of(double p, double t) noexcept {
    if (t > T_crit) return whole;
    return p > p_crit || t < tsat(p) ? liquid : vapour;
}

// In single precision the start does not carry the last digit of the host's exponential, which
// subregion 3n passes through, into the result.
double start_on(Side side, double d_start) noexcept {
    return machine::in_single(std::clamp(d_start, side.low, side.high));
}

// Root of p(d) = p on a side, by Newton's method; 0.0 where there is none.
double newton(const region3::Isotherm& isotherm, double p, Side side, double d_start) noexcept {
    constexpr double rounding = 1e-12;  // of the pressure, relative
    constexpr double flat = 1e-30;      // MPa m3/kg, a slope that leads to the end of the bracket
    const NewtonRoot<double> root = bracketed_newton(
        [&](double d) noexcept {
            const Tangent<double> at{isotherm.p(d), isotherm.p_d(d)};
            return at.y_x > 0 ? at : Tangent<double>{at.y + side.p_beyond, flat};
        },
        p, side.low, side.high, start_on(side, d_start), last_step);
    // an end of the side stands for a root beyond it, and next to the critical point the isotherm
    // is so flat that rounding decides the steps
    const bool solved = (root.converged && root.x > side.low && root.x < side.high) ||
                        fabs(isotherm.p(root.x) - p) < rounding * p;
    return solved ? root.x : 0.0;
}

// Density, kg/m3, by the backward equations.
double published(double p, double t) noexcept {
    return 1 / region3::v_subregion(region3::subregion_pt(p, t), p, t);
}

}  // namespace

double density_pt(double p, double t, double d_start) noexcept {
    const region3::Isotherm isotherm(t);
    const Side side = side_of(p, t);
    const double own = newton(isotherm, p, side, d_start);
    if (own > 0 || t > T_crit) return own;
    return newton(isotherm, p, side.low == d_crit ? vapour : liquid, d_start);
}

double density_pt(double p, double t) noexcept {
    const double d_start = published(p, t);
    const region3::Isotherm isotherm(t);
    const Side side = side_of(p, t);
    const double d = corrected(isotherm, p, start_on(side, d_start));
    return side.low < d && d < side.high ? d : density_pt(p, t, d_start);
}

double density_beside(double p, double t, double d_start) noexcept {
    return newton(region3::Isotherm(t), p, side_of(d_start), d_start);
}

double d_iterated(double p, double t, double d_start, double tolerance) noexcept {
    const Side side = side_of(d_start);
    const region3::Isotherm isotherm(t);
    const auto residual = [&](double d) noexcept { return Residual<double>{d, isotherm.p(d) - p}; };
    const Residual<double> low = residual(std::max(0.999 * d_start, side.low));
    const Residual<double> high = residual(std::min(1.001 * d_start, side.high));
    if (low.f <= 0 && high.f >= 0) {
        const BracketedRoot<double> root = bracketed_secant(
            [&](double d) noexcept { return residual(d).f; }, low, high, tolerance);
        return root.converged ? root.x : 0.0;
    }
    const double d = newton(isotherm, p, side, d_start);
    return d > 0 || d_start != d_crit ? d : newton(isotherm, p, liquid, d_start);
}

double v_iterated(double p, double t, double d_start) noexcept {
    const double d = density_pt(p, t, d_start);
    return d > 0 ? 1 / d : std::numeric_limits<double>::infinity();
}

}  // namespace vaprix::region3_density
