// SPDX-License-Identifier: MIT
#include "saturation/line.hpp"

#include "frame/error_code.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::saturation {
namespace {

bool on_line(double t) noexcept { return t <= T_crit && t >= T_min; }

bool in_backward_range(double p) noexcept {
    constexpr double lowest = 0.0005;  // MPa
    return p <= p_crit && p >= lowest;
}

}  // namespace

double p_b(double t) noexcept { return on_line(t) ? psat(t) : failed; }

double p_o(double t) noexcept {
    return on_line(t) ? psat(t) : fail(ErrorCode::saturation_temperature_range);
}

double t_b(double p) noexcept { return in_backward_range(p) ? tsat(p) : failed; }

double t_p_b(double p) noexcept { return in_backward_range(p) ? tsat_p(p) : failed; }

double t_o(double p) noexcept {
    return p <= p_crit && p > 0 ? tsat_exact(p) : fail(ErrorCode::saturation_pressure_range);
}

}  // namespace vaprix::saturation
