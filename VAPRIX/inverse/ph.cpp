// SPDX-License-Identifier: MIT
#include "inverse/ph.hpp"

#include "inverse/b_by_pressure.hpp"
#include "inverse/o_by_pressure.hpp"

namespace vaprix::ph {

using Y = inverse::Enthalpy;

double region_reported(double p, double h) noexcept { return inverse::region_reported<Y>(p, h); }
double t_given(double p, double h, int& region) noexcept {
    return inverse::t_given<Y>(p, h, region);
}

double t_b(double p, double h) noexcept { return inverse::t_b<Y>(p, h); }
double v_b(double p, double h) noexcept { return inverse::v_b<Y>(p, h); }
double d_b(double p, double h) noexcept { return inverse::d_b<Y>(p, h); }
double s_b(double p, double h) noexcept { return inverse::other_b<Y>(p, h); }
double cp_b(double p, double h) noexcept { return inverse::single_phase_b<Y, pt::cp>(p, h); }
double w_b(double p, double h) noexcept { return inverse::single_phase_b<Y, pt::w>(p, h); }
double x_b(double p, double h) noexcept { return inverse::x_b<Y>(p, h); }

double t_o(double p, double h) noexcept { return inverse::t_o<Y>(p, h); }
double v_o(double p, double h) noexcept { return inverse::v_o<Y>(p, h); }
double d_o(double p, double h) noexcept { return inverse::d_o<Y>(p, h); }
double s_o(double p, double h) noexcept { return inverse::mixed_o<Y, pt::s>(p, h); }
double cp_o(double p, double h) noexcept { return inverse::single_phase_o<Y, pt::cp>(p, h); }
double w_o(double p, double h) noexcept { return inverse::single_phase_o<Y, pt::w>(p, h); }
double x_o(double p, double h) noexcept { return inverse::x_o<Y>(p, h); }

}  // namespace vaprix::ph
