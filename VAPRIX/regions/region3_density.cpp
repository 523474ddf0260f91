// SPDX-License-Identifier: MIT
#include "regions/region3_density.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/bracketed_secant.hpp"
#include "frame/constants.hpp"
#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/region3_start.hpp"

namespace vaprix::region3 {
namespace {

enum class Side { liquid, vapour };  // denser or less dense than the critical density

// One start-value fit, k = 1..7.
template <auto const& Terms, std::size_t k>
double fit(double p, double t) noexcept {
    static constexpr auto volume = polynomial(Terms);
    constexpr const auto& scale = tables::start_scale[k - 1];
    return evaluate<volume>((p - scale.p0) * scale.p_factor, (t - scale.T0) * scale.T_factor);
}

// Root of p(d) = p by Newton's method from outside: from above on the liquid side, where the
// isotherm is convex, from below on the vapour side, where it is concave. The steps run towards the
// root without passing it, so that neither the wrong phase nor the flat isotherm next to the
// critical point is met. A step that does pass it, beyond the inflection of a hotter isotherm or by
// rounding, leaves a bracket for the iteration.
Density newton_from_outside(const Isotherm& isotherm, double p, double d_start, double tolerance,
                            Side side) noexcept {
    constexpr double lowest = 50;    // kg/m3, below and
    constexpr double highest = 800;  // above every state of region 3, where the isotherm rises
    constexpr double step_out = 1.05;
    constexpr double longest_step = 0.05;  // relative; also the step where the isotherm is flat
    constexpr double newton_tolerance = 1e-10;
    constexpr int rounds = 100;

    const bool liquid = side == Side::liquid;
    const auto residual = [&](double d) noexcept { return isotherm.p(d) - p; };
    const auto passed = [liquid](double r) noexcept { return liquid ? r < 0 : r > 0; };

    double d = liquid ? std::clamp(d_start, d_crit, highest) : std::clamp(d_start, lowest, d_crit);
    d = liquid ? d * step_out : d / step_out;
    double r = residual(d);
    for (int round = 0; round < rounds && passed(r); ++round) {
        d = liquid ? d * step_out : d / step_out;
        r = residual(d);
    }
    if (passed(r)) return {d, false};
    for (int round = 0; round < rounds; ++round) {
        double step = -r / isotherm.p_d(d);
        if (std::fabs(step) < newton_tolerance * d) return {d + step, true};
        const double longest = liquid ? -longest_step * d : longest_step * d;
        if (!(step / longest > 0 && step / longest < 1)) step = longest;
        const double next = d + step;
        const double r_next = residual(next);
        if (passed(r_next)) {
            const BracketedRoot root = bracketed_secant(residual, {d, r}, {next, r_next},
                                                        std::min(tolerance, newton_tolerance));
            return {root.x, root.converged};
        }
        d = next;
        r = r_next;
    }
    return {d, false};
}

// The iteration from the bracket of 0.1 % around d_start, which does not cross the critical
// density. Where the fit misses the root by more (next to the critical point), the root is
// approached from outside.
Density solve(const Isotherm& isotherm, double p, double d_start, double tolerance,
              Side side) noexcept {
    double low = 0.999 * d_start;
    double high = 1.001 * d_start;
    if (d_start <= d_crit) {
        high = std::min(high, d_crit);
    } else {
        low = std::max(low, d_crit);
    }
    const auto residual = [&](double d) noexcept { return isotherm.p(d) - p; };
    const double r_low = residual(low);
    const double r_high = residual(high);
    if (r_low <= 0 && r_high >= 0) {
        const BracketedRoot root =
            bracketed_secant(residual, {low, r_low}, {high, r_high}, tolerance);
        return {root.x, root.converged};
    }
    return newton_from_outside(isotherm, p, d_start, tolerance, side);
}

// Above the critical temperature the isotherm rises throughout, and its pressure at the critical
// density tells the side; below, the phase does.
Side side_of(const Isotherm& isotherm, double p, double t, bool liquid) noexcept {
    if (t > T_crit) liquid = p > isotherm.p(d_crit);
    return liquid ? Side::liquid : Side::vapour;
}

}  // namespace

int start_subregion(double p, double t) noexcept {
    if (p > 40) return 7;
    if (p <= p_crit) return tsat(p) > t ? 1 : 4;
    const bool dense =
        p > p_crit + (t - T_crit) / 3.727888;  // above a line through the critical point
    if (p > 24) return dense ? 5 : 6;
    if (t <= T_crit) return 1;
    return dense ? 2 : 3;
}

double start_volume(double p, double t, int subregion) noexcept {
    switch (subregion) {
        case 1: return fit<tables::start_volume_1, 1>(p, t);
        case 2: return fit<tables::start_volume_2, 2>(p, t);
        case 3: return fit<tables::start_volume_3, 3>(p, t);
        case 4: return fit<tables::start_volume_4, 4>(p, t);
        case 5: return fit<tables::start_volume_5, 5>(p, t);
        case 6: return fit<tables::start_volume_6, 6>(p, t);
        default: return fit<tables::start_volume_7, 7>(p, t);
    }
}

Density density_pt(double p, double t) noexcept {
    const int subregion = start_subregion(p, t);
    const Isotherm isotherm(t);
    return solve(isotherm, p, 1 / start_volume(p, t, subregion), density_tolerance,
                 side_of(isotherm, p, t, subregion != 4));
}

Density density_from(double p, double t, double d_start, double tolerance) noexcept {
    const Isotherm isotherm(t);
    return solve(isotherm, p, d_start, tolerance,
                 side_of(isotherm, p, t, p > p_crit || d_start > d_crit));
}

double d_iterated(double p, double t, double d_start, double tolerance) noexcept {
    const Density density = density_from(p, t, d_start, tolerance);
    return density.converged ? density.d : 0.0;
}

double v_iterated(double p, double t) noexcept {
    const Density density = density_pt(p, t);
    return density.converged ? 1 / density.d : std::numeric_limits<double>::infinity();
}

}  // namespace vaprix::region3
