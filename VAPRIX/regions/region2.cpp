// SPDX-License-Identifier: MIT
#include "regions/region2.hpp"

#include "regions/tables/region2.hpp"
#include "regions/vapour.hpp"

namespace vaprix::region2 {
namespace {

// gamma = ln pi + sum n0 tau^J0 + sum n pi^I (tau - 0.5)^J, pi = p, tau = 540/T
struct Equation {
    static constexpr auto ideal = polynomial(tables::region2_ideal);
    static constexpr auto residual = polynomial(tables::region2_residual);
    static constexpr double T_star = 540;  // K
    static constexpr double shift = 0.5;
    // 1/T* for the negative powers of tau, in the two roundings that the enthalpy and the other
    // properties have always been published with; they must stay apart, or digits of hosts change.
    static constexpr double T_star_reciprocal_h = 0.0018518518518518;
    static constexpr double T_star_reciprocal = 0.001851851851851852;
};
using Properties = Vapour<Equation>;

}  // namespace

double v(double p, double t) noexcept { return Properties::v(p, t); }
double h(double p, double t) noexcept { return Properties::h(p, t); }
double u(double p, double t) noexcept { return Properties::u(p, t); }
double s(double p, double t) noexcept { return Properties::s(p, t); }
double s_plus_r_ln_p(double p, double t) noexcept { return Properties::s_plus_r_ln_p(p, t); }
double g(double p, double t) noexcept { return Properties::g(p, t); }
double cp(double p, double t) noexcept { return Properties::cp(p, t); }
double cv(double p, double t) noexcept { return Properties::cv(p, t); }
double w(double p, double t) noexcept { return Properties::w(p, t); }
double v_t(double p, double t) noexcept { return Properties::derivatives(p, t).v_t; }
Tangent h_tangent_t(double p, double t) noexcept { return Properties::h_tangent_t(p, t); }
Tangent s_plus_r_ln_p_tangent_t(double p, double t) noexcept {
    return Properties::s_plus_r_ln_p_tangent_t(p, t);
}
TangentPair hs_tangents(double p, double t) noexcept { return Properties::hs_tangents(p, t); }
Tangent v_tangent_p(double p, double t) noexcept { return Properties::v_tangent_p(p, t); }
Tangent v_tangent_t(double p, double t) noexcept { return Properties::v_tangent_t(p, t); }
Tangent h_tangent_p(double p, double t) noexcept { return Properties::h_tangent_p(p, t); }
Tangent s_plus_r_ln_p_tangent_p(double p, double t) noexcept {
    return Properties::s_plus_r_ln_p_tangent_p(p, t);
}
double ideal_part(double t) noexcept { return Properties::ideal_part(t); }
double residual_part(double p, double t) noexcept { return Properties::residual_part(p, t); }

template <Formula formula>
double derived(double p, double t) noexcept {
    return formula(Properties::derivatives(p, t), p);
}
VAPRIX_INSTANTIATE_DERIVED(double, double);

}  // namespace vaprix::region2
