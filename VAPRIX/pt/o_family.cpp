// SPDX-License-Identifier: MIT
#include "pt/o_family.hpp"

#include "pt/derived.hpp"
#include "regions/region3_density.hpp"
#include "regions/saturated_densities.hpp"

namespace vaprix::pt {

double density3(double p, double t) noexcept {
    return at_critical_point(p, t) ? d_crit : region3_density::density_pt(p, t);
}

namespace {

template <const auto& property>
double evaluate_o(double p, double t) noexcept {
    switch (region_pt(p, t)) {
        case 1: return property.region1(p, t);
        case 2: return property.region2(p, t);
        case 3: {
            const double d = density3(p, t);
            return d > 0 ? property.dense(p, d, t) : failed;
        }
        case 5: return property.region5(p, t);
        case saturation_line:
            store(ErrorCode::success);
            if (t <= T_13) return property.region1(p, t);
            return property.dense(p, dsat3(t, p).liquid, t);
        default: return fail(ErrorCode::outside_range);
    }
}

}  // namespace

double d_o(double p, double t) noexcept { return d_o_in(region_pt(p, t), p, t); }

double d_o_in(int region, double p, double t) noexcept {
    switch (region) {
        case 1: return 1 / region1::v(p, t);
        case 2: return 1 / region2::v(p, t);
        case 3: return density3(p, t);
        case 5: return 1 / region5::v(p, t);
        default: return at_critical_point(p, t) ? d_crit : fail(ErrorCode::outside_range);
    }
}

// Deliberately two solves, one to see that there is a density and one for the result: the volume is
// defined as the reciprocal of a second, independent density, and stays so.
double v_o(double p, double t) noexcept {
    if (!(d_o(p, t) > 0)) return failed;
    return 1 / d_o(p, t);
}

double h_o(double p, double t) noexcept { return evaluate_o<h>(p, t); }
double s_o(double p, double t) noexcept { return evaluate_o<s>(p, t); }
double cp_o(double p, double t) noexcept { return evaluate_o<cp>(p, t); }
double cv_o(double p, double t) noexcept { return evaluate_o<cv>(p, t); }
double w_o(double p, double t) noexcept { return evaluate_o<w>(p, t); }
double u_o(double p, double t) noexcept { return evaluate_o<u>(p, t); }
double f_o(double p, double t) noexcept { return evaluate_o<f>(p, t); }
double g_o(double p, double t) noexcept { return evaluate_o<g>(p, t); }

double fugacity_o(double p, double t) noexcept {
    if (t < T_min - tolerance) return fail(ErrorCode::fugacity_below_t_min);
    if (!(p > 0)) return fail(ErrorCode::fugacity_not_positive);
    store(ErrorCode::success);
    return evaluate_o<fugacity>(p, t);
}

}  // namespace vaprix::pt
