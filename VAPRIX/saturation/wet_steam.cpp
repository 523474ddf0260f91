// SPDX-License-Identifier: MIT
#include "saturation/wet_steam.hpp"

#include <limits>

#include "pt/derived.hpp"

namespace vaprix::saturation {

double v_px_b(double p, double x) noexcept {
    const bool infinite = p == 0 && x > 0 && x <= 1;
    return infinite ? std::numeric_limits<double>::infinity() : of_px_b<pt::v>(p, x);
}

double d_px_o(double p, double x) noexcept {
    if (near_critical(p)) return d_crit;
    const double t = t_o(p);
    if (!(t > 0)) return failed;
    if (!is_quality(x)) return fail(ErrorCode::quality_range);
    return 1 / pt::SaturatedState(p, t).mixture<pt::v>(x);
}

double v_px_o(double p, double x) noexcept {
    const double d = d_px_o(p, x);
    return d > 0 ? 1 / d : failed;
}

double p_tx_o(double t, double x) noexcept {
    const double p = p_o(t);
    return p > 0 && !is_quality(x) ? fail(ErrorCode::quality_range) : p;
}

double d_tx_o(double t, double x) noexcept {
    const double v = of_tx_o<pt::v>(t, x);
    return v > 0 ? 1 / v : failed;
}

double z_tx_o(double t, double x) noexcept {
    const double v = of_tx_o<pt::v>(t, x);
    return v > 0 ? 1000 * psat(t) * v / (R * t) : failed;
}

double fugacity_tx_o(double t, double x) noexcept {
    const double p = p_o(t);
    if (!(p > 0)) return failed;
    return is_quality(x) ? of<liquid, pt::fugacity>({p, t}) : fail(ErrorCode::property_range);
}

}  // namespace vaprix::saturation
