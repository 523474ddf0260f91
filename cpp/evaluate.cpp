// SPDX-License-Identifier: MIT
//
// Properties and derivatives of the C++ interface: by the library's properties of a state, not a number where a state
// has none.
#include <cmath>

#include "derivatives.hpp"
#include "state/derived.hpp"
#include "storage.hpp"
#include "transport/readings.hpp"
#include "transport/surface_tension.hpp"

namespace vaprix {
inline namespace v0 {
namespace bridge {

namespace {

// By the lever rule in wet steam.
template <const auto& property>
double of_any(const Resolved& at) noexcept {
    return at.region == 0 ? nan : mixed<property>(state_of(at));
}

// The single phase that dry properties are of: in wet steam that of a saturated phase within 1e-6 of its end of the tie
// line, which rounding may have put a trifle inside.
State dry(const Resolved& at) noexcept {
    const State state = state_of(at);
    if (state.region != Region::wet) return state;
    constexpr double end = 1e-6;
    const double from_vapour = 1 - state.x;
    if (state.x >= 0 && state.x < end) return liquid_end(state);
    if (from_vapour >= 0 && from_vapour < end) return vapour_end(state);
    return {};
}

// Of a single phase up to a temperature.
template <const auto& property>
double of_dry(const Resolved& at, double top = T_max) noexcept {
    const State state = dry(at);
    return state.region == Region::none || !(state.t <= top) ? nan : single<property>(state);
}

// The same with d and v, which in a saturated phase is the reciprocal of d.
State dry_with_volume(Resolved at) noexcept {
    form(at);
    const bool is_wet = at.region == wet;
    const State state = dry(at);
    return is_wet && state.region != Region::none ? with_volume<Asked{.density = true}>(state)
           : at.saturated != 0                    ? State{.region = state.region,
                                                          .p = state.p,
                                                          .t = state.t,
                                                          .d = state.d,
                                                          .v = 1 / state.d}
                                                  : state;
}
template <const auto& property>
double of_density(const Resolved& at, double top) noexcept {
    const State state = dry_with_volume(at);
    return state.region == Region::none || !(state.t <= top) ? nan : single<property>(state);
}

// Of a single phase: w^2 = (dp/dd)_s = -v^2 cp/(v_p cv). Inlined, so that no sum is evaluated that is not read.
template <class Equation>
VAPRIX_INLINE Basics basics_of(double p_or_d, double t) noexcept {
    const auto [of, s] = Equation::derivatives_and_s(p_or_d, t);
    return {of.v, s, of.cp, of.cv, 1000 * of.v * std::sqrt(-of.cp / (of.v_p * of.cv))};
}

Basics basics_of_single(const State& state) noexcept {
    switch (state.region) {
        case Region::one: return basics_of<region1>(state.p, state.t);
        case Region::two: return basics_of<region2>(state.p, state.t);
        case Region::three: return basics_of<region3>(state.d, state.t);
        case Region::five: return basics_of<region5>(state.p, state.t);
        default: return {nan, nan, nan, nan, nan};
    }
}

// Of wet steam: v and s by the lever rule.
Basics basics_of_wet(const Resolved& at) noexcept {
    const bool dense = at.t > T_13;
    const Basics liquid =
        dense ? basics_of<region3>(at.dense[1], at.t) : basics_of<region1>(at.p, at.t);
    const Basics vapour =
        dense ? basics_of<region3>(at.dense[0], at.t) : basics_of<region2>(at.p, at.t);
    Basics of = basics_of_single(dry(at));
    of.v = liquid.v + at.x * (vapour.v - liquid.v);
    of.s = liquid.s + at.x * (vapour.s - liquid.s);
    return of;
}

constexpr Slopes no_slopes = [] {
    Slopes slopes{};
    for (auto& row : slopes.of) row[0] = row[1] = nan;
    return slopes;
}();

Slopes stored(const derivatives::Rows<double>& rows) noexcept {
    Slopes slopes;
    for (std::size_t k = 0; k < properties; ++k) {
        slopes.of[k][0] = rows[k][0];
        slopes.of[k][1] = rows[k][1];
    }
    return slopes;
}

}  // namespace

double v(const Resolved& at) noexcept {
    Resolved formed = at;
    form(formed);
    return formed.v;
}
double d(const Resolved& at) noexcept {
    Resolved formed = at;
    form(formed);
    return formed.d;
}

double h(const Resolved& at) noexcept { return of_any<property::h>(at); }
double s(const Resolved& at) noexcept { return of_any<property::s>(at); }
double u(const Resolved& at) noexcept { return of_any<property::u>(at); }
double f(const Resolved& at) noexcept { return of_any<property::f>(at); }
double g(const Resolved& at) noexcept { return of_any<property::g>(at); }

double cp(const Resolved& at) noexcept { return of_dry<property::cp>(at); }
double cv(const Resolved& at) noexcept { return of_dry<property::cv>(at); }
double w(const Resolved& at) noexcept { return of_dry<property::w>(at); }
double kappa(const Resolved& at) noexcept { return of_dry<property::kappa>(at); }
double cp_per_cv(const Resolved& at) noexcept { return of_dry<property::cp_per_cv>(at); }
double mu(const Resolved& at) noexcept { return of_dry<property::mu>(at); }
double alpha_v(const Resolved& at) noexcept { return of_dry<property::alpha_v>(at); }
double alpha_p(const Resolved& at) noexcept { return of_dry<property::alpha_p>(at); }
double beta_p(const Resolved& at) noexcept { return of_dry<property::beta_p>(at); }
double kappa_T(const Resolved& at) noexcept { return of_dry<property::kappa_T>(at); }
double g_ideal(const Resolved& at) noexcept { return of_dry<property::g_ideal>(at); }

Basics basics(const Resolved& at) noexcept {
    return at.region == wet ? basics_of_wet(at) : basics_of_single(state_of(at));
}

double z(const Resolved& at) noexcept {
    if (at.region == wet) return property::z_of_v.of(state_of(at));
    return of_dry<property::z>(at);
}

// Both phases share it: that of the liquid.
double fugacity(const Resolved& at) noexcept {
    if (at.region == wet) return single<property::fugacity>(liquid_end(state_of(at)));
    return of_dry<property::fugacity>(at);
}

double eta(const Resolved& at) noexcept { return of_density<property::eta>(at, viscosity_top); }
double nu(const Resolved& at) noexcept { return of_density<property::vnu>(at, viscosity_top); }
double lambda(const Resolved& at) noexcept {
    return of_density<property::tco>(at, conductivity_top);
}
double Pr(const Resolved& at) noexcept { return of_density<property::pr>(at, conductivity_top); }
double a(const Resolved& at) noexcept { return of_density<property::a>(at, conductivity_top); }
double epsilon(const Resolved& at) noexcept {
    return of_density<property::eps>(at, dielectric_top);
}

double n(const Resolved& at, double wavelength) noexcept {
    const State state = dry_with_volume(at);
    const bool defined =
        state.region != Region::none && property::Refraction::defined(state, wavelength);
    return defined ? property::Refraction::of(state, wavelength) : nan;
}

double sigma(const Resolved& at) noexcept {
    const bool on_line = at.region == wet || at.saturated != 0;
    return on_line && at.t >= T_min ? transport::surface_tension(at.t) : nan;
}

Slopes slopes(const Resolved& at) noexcept {
    if (at.region == 0) return no_slopes;
    const State state = state_of(at);
    return stored(at.region == wet ? derivatives::mixed(state) : derivatives::single(state).slopes);
}

Slopes slopes_along_line(const Resolved& at) noexcept {
    const bool on_line = at.region == wet || at.saturated != 0;
    return on_line ? stored(derivatives::mixed(wet_state_of(at))) : no_slopes;
}

Curvatures curvatures(const Resolved& at, Property y) noexcept {
    Curvatures curvatures{{{nan, nan, nan}, {nan, nan, nan}, {nan, nan, nan}, {nan, nan, nan}}};
    if (at.region == 0 || at.region == wet) return curvatures;
    const auto rows = derivatives::curvatures(state_of(at));
    const std::size_t by = y == Property::T ? 0 : y == Property::h ? 2 : y == Property::s ? 3 : 4;
    for (std::size_t k = 0; k < 4 && by < 4; ++k) {
        const auto in = derivatives::along(rows[k], rows[by]);
        curvatures.of[k][0] = in.pp;
        curvatures.of[k][1] = in.py;
        curvatures.of[k][2] = in.yy;
    }
    return curvatures;
}

}  // namespace bridge
}  // namespace v0
}  // namespace vaprix
