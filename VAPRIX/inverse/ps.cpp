// SPDX-License-Identifier: MIT
#include "inverse/ps.hpp"

#include "inverse/b_by_pressure.hpp"
#include "inverse/o_by_pressure.hpp"

namespace vaprix::ps {

using Y = inverse::Entropy;

double region_reported(double p, double s) noexcept { return inverse::region_reported<Y>(p, s); }
double t_given(double p, double s, int& region) noexcept {
    return inverse::t_given<Y>(p, s, region);
}

double t_b(double p, double s) noexcept { return inverse::t_b<Y>(p, s); }
double v_b(double p, double s) noexcept { return inverse::v_b<Y>(p, s); }
double d_b(double p, double s) noexcept { return inverse::d_b<Y>(p, s); }
double h_b(double p, double s) noexcept { return inverse::other_b<Y>(p, s); }
double cp_b(double p, double s) noexcept { return inverse::single_phase_b<Y, pt::cp>(p, s); }
double w_b(double p, double s) noexcept { return inverse::single_phase_b<Y, pt::w>(p, s); }
double x_b(double p, double s) noexcept { return inverse::x_b<Y>(p, s); }

double t_o(double p, double s) noexcept { return inverse::t_o<Y>(p, s); }
double v_o(double p, double s) noexcept { return inverse::v_o<Y>(p, s); }
double d_o(double p, double s) noexcept { return inverse::d_o<Y>(p, s); }
double h_o(double p, double s) noexcept { return inverse::mixed_o<Y, pt::h>(p, s); }
double cp_o(double p, double s) noexcept { return inverse::single_phase_o<Y, pt::cp>(p, s); }
double w_o(double p, double s) noexcept { return inverse::single_phase_o<Y, pt::w>(p, s); }
double x_o(double p, double s) noexcept { return inverse::x_o<Y>(p, s); }

}  // namespace vaprix::ps
