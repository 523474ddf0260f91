// SPDX-License-Identifier: MIT
#include "regions/region5_backward.hpp"

#include "frame/constants.hpp"
#include "frame/steered_search.hpp"
#include "regions/region5.hpp"

namespace vaprix::region5 {
namespace {

constexpr double tolerance = 1e-6;

struct Bracket {
    double low, high;  // K
};

Bracket bracket_ph(double h) noexcept {
    if (h < 5000) return {T_25, 1573.15};
    if (h < 6500) return {1323.15, 2073.15};
    return {1823.15, T_max};
}

Bracket bracket_ps(double p, double s) noexcept {
    if (p < 0.1) return {T_25, T_max};
    if (p < 1) return {T_25, s < 9.5 ? 1823.15 : T_max};
    if (s < (p < 5 ? 9.0 : 8.5)) return {T_25, 1823.15};
    return {1323.15, T_max};
}

}  // namespace

double t_ph(double p, double h) noexcept {
    const Bracket bracket = bracket_ph(h);
    const auto residual = [p, h](double t) noexcept { return region5::h(p, t) - h; };
    return steered_search(residual, bracket.low, bracket.high, tolerance);
}

double t_ps(double p, double s) noexcept {
    const Bracket bracket = bracket_ps(p, s);
    const auto residual = [p, s](double t) noexcept { return region5::s(p, t) - s; };
    return steered_search(residual, bracket.low, bracket.high, tolerance);
}

}  // namespace vaprix::region5
