// SPDX-License-Identifier: MIT
#include "pt/region_given.hpp"

#include "pt/region_pt.hpp"

namespace vaprix::pt {
namespace {

int settle(double p, double t, int& region) noexcept {
    if (region == outside) region = region_pt(p, t);
    return region;
}

}  // namespace

double v_given(double p, double t, int& region) noexcept {
    return volume_in(settle(p, t, region), p, t);
}

double h_given(double p, double t, int& region) noexcept {
    return evaluate_in<h>(settle(p, t, region), p, t);
}

double s_given(double p, double t, int& region) noexcept {
    return evaluate_in<s>(settle(p, t, region), p, t);
}

double cp_given(double p, double t, int& region) noexcept {
    return evaluate_in<cp>(settle(p, t, region), p, t);
}

double cv_given(double p, double t, int& region) noexcept {
    return evaluate_in<cv>(settle(p, t, region), p, t);
}

}  // namespace vaprix::pt
