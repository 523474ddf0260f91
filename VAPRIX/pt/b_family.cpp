// SPDX-License-Identifier: MIT
#include "pt/b_family.hpp"

#include <limits>

namespace vaprix::pt {
namespace {

// Properties that pass the saturation line on to the evaluation get its 0.0 for a region without
// equation.
template <const Property& property>
double zero_on_line(double p, double t) noexcept {
    const int region = region_pt(p, t);
    return region == outside ? failed : evaluate_in<property>(region, p, t);
}

}  // namespace

double region_reported(double p, double t) noexcept { return reported(region_pt(p, t)); }

double v_b(double p, double t) noexcept {
    const int region = region_pt(p, t);
    return region == outside ? failed : volume_in(region, p, t);
}

double d_b(double p, double t) noexcept {
    const int region = region_pt(p, t);
    if (region == outside) return failed;
    if (region == saturation_line) return std::numeric_limits<double>::infinity();
    return 1 / volume_in(region, p, t);
}

double h_b(double p, double t) noexcept { return zero_on_line<h>(p, t); }
double s_b(double p, double t) noexcept { return zero_on_line<s>(p, t); }
double cp_b(double p, double t) noexcept { return zero_on_line<cp>(p, t); }
double w_b(double p, double t) noexcept { return zero_on_line<w>(p, t); }
double cv_b(double p, double t) noexcept { return single_phase_b<cv>(p, t); }
double u_b(double p, double t) noexcept { return single_phase_b<u>(p, t); }
double f_b(double p, double t) noexcept { return single_phase_b<f>(p, t); }
double g_b(double p, double t) noexcept { return single_phase_b<g>(p, t); }

}  // namespace vaprix::pt
