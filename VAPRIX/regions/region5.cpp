// SPDX-License-Identifier: MIT
#include "regions/region5.hpp"

#include "regions/tables/region5.hpp"
#include "regions/vapour.hpp"

namespace vaprix::region5 {
namespace {

// gamma = ln pi + sum n0 tau^J0 + sum n pi^I tau^J, pi = p, tau = 1000/T
struct Equation {
    static constexpr auto ideal = polynomial(tables::region5_ideal);
    static constexpr auto residual = polynomial(tables::region5_residual);
    static constexpr double T_star = 1000;  // K
    static constexpr double shift = 0;
    static constexpr double T_star_reciprocal_h = 0.001;
    static constexpr double T_star_reciprocal = 0.001;
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

}  // namespace vaprix::region5
