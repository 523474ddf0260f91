// SPDX-License-Identifier: MIT
//
// States of water and steam after IAPWS-IF97 with their properties and derivatives, for C++17 and later.
//
//     const vaprix::State s = vaprix::of_ph(10, 3000);   // MPa, kJ/kg
//     s.T(), s.v(), s.cp();
//     s.derivative<vaprix::d, vaprix::h, vaprix::p>();   // (dd/dh)_p
//
// Units: p MPa; T K; v m3/kg; d kg/m3; h u f g kJ/kg; s cp cv kJ/(kg K); x kg of vapour per kg. Derivatives are in the
// quotients of these: dp/dT in MPa/K, d2v/dpdT in m3/(kg MPa K).
//
// A State is resolved once, when it is made: it is a value of 64 bytes, copied bit by bit, the same for every thread.
// Outside the range of validity it is a failed state: false, of region 0, with an error code (docs/error-codes.md), all
// of whose properties are NaN. Nothing throws or allocates, and CODE of libvaprix is left alone.
//
// The classes live in an inline namespace that carries the number of the binary interface, so that programs built with
// different ones may meet in a process; what the library exports are the plain functions of vaprix/bridge.hpp.
#pragma once

#include <limits>

#include "vaprix/bridge.hpp"

namespace vaprix {
inline namespace v0 {

// O: the state reproduces both given variables through the basic equations. B: by the published equations directly,
// backward equations included, faster and good to their published tolerance.
using bridge::Family;

// What derivatives are taken of and by.
using bridge::Property;
inline constexpr Property p = Property::p, T = Property::T, v = Property::v, d = Property::d,
                          h = Property::h, s = Property::s, u = Property::u, f = Property::f,
                          g = Property::g;

// The first derivatives of a state, or those along the saturation line, all from one evaluation.
//
// (dz/dx)_y is NaN where x does not change at constant y: x = y everywhere, and T at constant p or p at constant T in wet
// steam, where cp is infinite. It is exactly 0 for z = y, 1 for z = x. A saturated phase has the derivatives of its own
// single phase. In wet steam they are those of the lever rule with both phases moving along the saturation line, so
// that they are the slopes of what State answers; T ds = dh - v dp and Maxwell's relations hold there as well as the
// saturation line of IAPWS-IF97 agrees with its phase equilibrium: dps/dT to 2.5e-4, to 1e-3 in the last 7 K. At the
// critical point they are what rounding leaves of infinities.
class Slopes {
public:
    explicit Slopes(const bridge::Slopes& slopes) noexcept : slopes_(slopes) {}

    // (dz/dx)_y
    [[nodiscard]] double derivative(Property z, Property x, Property y) const noexcept {
        const double by_x = jacobian(x, y);
        return by_x != 0 ? jacobian(z, y) / by_x : std::numeric_limits<double>::quiet_NaN();
    }
    template <Property z, Property x, Property y>
    [[nodiscard]] double derivative() const noexcept {
        return derivative(z, x, y);
    }

    // dz/dx in the direction of the first coordinate: along the saturation line.
    [[nodiscard]] double along_line(Property z, Property x) const noexcept {
        return of(z)[0] / of(x)[0];
    }

private:
    [[nodiscard]] const double* of(Property z) const noexcept {
        return slopes_.of[static_cast<int>(z)];
    }
    [[nodiscard]] double jacobian(Property a, Property b) const noexcept {
        return of(a)[0] * of(b)[1] - of(a)[1] * of(b)[0];
    }

    bridge::Slopes slopes_;
};

// (d2z/dp2)_y, d2z/dpdy and (d2z/dy2)_p of T, v, h and s, all from one evaluation; NaN of other properties.
struct Curvature {
    double pp, py, yy;
};
class Curvatures {
public:
    explicit Curvatures(const bridge::Curvatures& curvatures) noexcept : curvatures_(curvatures) {}

    [[nodiscard]] Curvature of(Property z) const noexcept {
        const int row = z == T ? 0 : z == v ? 1 : z == h ? 2 : z == s ? 3 : 4;
        if (row == 4) return {nan, nan, nan};
        const double* at = curvatures_.of[row];
        return {at[0], at[1], at[2]};
    }
    template <Property z>
    [[nodiscard]] Curvature of() const noexcept {
        static_assert(z == T || z == v || z == h || z == s,
                      "second derivatives are of T, v, h and s");
        return of(z);
    }

private:
    static constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    bridge::Curvatures curvatures_;
};

class State {
public:
    State() noexcept : State(bridge::of_pt(nan, nan, Family::O)) {}  // a failed state
    explicit State(const bridge::Resolved& resolved) noexcept : at_(resolved) {}

    explicit operator bool() const noexcept { return at_.region != 0; }
    [[nodiscard]] int code() const noexcept { return at_.code; }  // 0, or why there is no state

    // 0 of no state, 1, 2, 3, 5 by the equation of the state, 4 of wet steam
    [[nodiscard]] int region() const noexcept { return at_.region; }

    [[nodiscard]] double p() const noexcept { return at_.p; }  // pressure, MPa
    [[nodiscard]] double T() const noexcept { return at_.t; }  // temperature, K
    // vapour quality of wet steam, 0 and 1 of saturated phases, NaN of any other single phase
    [[nodiscard]] double x() const noexcept { return at_.x; }

    // by the lever rule in wet steam
    [[nodiscard]] double v() const noexcept {
        return at_.unformed ? bridge::v(at_) : at_.v;
    }  // specific volume, m3/kg
    [[nodiscard]] double d() const noexcept {
        return at_.unformed ? bridge::d(at_) : at_.d;
    }                                                                   // density, kg/m3
    [[nodiscard]] double h() const noexcept { return bridge::h(at_); }  // specific enthalpy, kJ/kg
    [[nodiscard]] double s() const noexcept {
        return bridge::s(at_);
    }  // specific entropy, kJ/(kg K)
    [[nodiscard]] double u() const noexcept {
        return bridge::u(at_);
    }  // specific internal energy, kJ/kg
    [[nodiscard]] double f() const noexcept {
        return bridge::f(at_);
    }  // specific Helmholtz energy, kJ/kg
    [[nodiscard]] double g() const noexcept {
        return bridge::g(at_);
    }  // specific Gibbs energy, kJ/kg
    [[nodiscard]] double z() const noexcept {
        return bridge::z(at_);
    }  // compressibility factor p v/(R T)
    [[nodiscard]] double fugacity() const noexcept { return bridge::fugacity(at_); }  // MPa

    // of a single phase; NaN in wet steam but for the last 1e-6 of a tie line, which counts as the saturated phase
    [[nodiscard]] double cp() const noexcept {
        return bridge::cp(at_);
    }  // isobaric heat capacity, kJ/(kg K)
    [[nodiscard]] double cv() const noexcept {
        return bridge::cv(at_);
    }  // isochoric heat capacity, kJ/(kg K)
    [[nodiscard]] double w() const noexcept { return bridge::w(at_); }  // speed of sound, m/s
    [[nodiscard]] double kappa() const noexcept {
        return bridge::kappa(at_);
    }  // isentropic exponent
    [[nodiscard]] double cp_per_cv() const noexcept {
        return bridge::cp_per_cv(at_);
    }  // ratio of heat capacities
    [[nodiscard]] double mu() const noexcept {
        return bridge::mu(at_);
    }  // Joule-Thomson coefficient, K/MPa
    [[nodiscard]] double alpha_v() const noexcept {
        return bridge::alpha_v(at_);
    }  // isobaric expansion, 1/K
    [[nodiscard]] double alpha_p() const noexcept {
        return bridge::alpha_p(at_);
    }  // relative pressure coefficient, 1/K
    [[nodiscard]] double beta_p() const noexcept {
        return bridge::beta_p(at_);
    }  // isothermal stress, kg/m3
    [[nodiscard]] double kappa_T() const noexcept {
        return bridge::kappa_T(at_);
    }  // compressibility, 1/MPa
    [[nodiscard]] double g_ideal() const noexcept {
        return bridge::g_ideal(at_);
    }  // g of the ideal gas, kJ/kg

    // the same, up to the temperature at which the correlation ends: 1173.15 K, 1073.15 K with the conductivity,
    // 1200 K of the dielectric constant, 773.15 K of the refractive index
    [[nodiscard]] double eta() const noexcept {
        return bridge::eta(at_);
    }  // dynamic viscosity, 1e-6 Pa s
    [[nodiscard]] double nu() const noexcept {
        return bridge::nu(at_);
    }  // kinematic viscosity, 1e-6 m2/s
    [[nodiscard]] double lambda() const noexcept {
        return bridge::lambda(at_);
    }  // thermal conductivity, 1e-3 W/(m K)
    [[nodiscard]] double Pr() const noexcept { return bridge::Pr(at_); }  // Prandtl number
    [[nodiscard]] double a() const noexcept {
        return bridge::a(at_);
    }  // thermal diffusivity, 1e-6 m2/s
    [[nodiscard]] double epsilon() const noexcept {
        return bridge::epsilon(at_);
    }  // static dielectric constant
    // refractive index at a wavelength of 0.2 to 1.1 micrometres
    [[nodiscard]] double n(double wavelength) const noexcept { return bridge::n(at_, wavelength); }

    // surface tension of wet steam and saturated phases, N/m
    [[nodiscard]] double sigma() const noexcept { return bridge::sigma(at_); }

    // v, s, cp, cv and w from shared sums, in about half the time: to a few roundings the same.
    [[nodiscard]] bridge::Basics basics() const noexcept { return bridge::basics(at_); }

    // First derivatives: one of them by derivative(), several of one state by slopes(), which is evaluated once.
    [[nodiscard]] Slopes slopes() const noexcept { return Slopes(bridge::slopes(at_)); }
    template <Property z, Property x, Property y>
    [[nodiscard]] double derivative() const noexcept {
        return slopes().derivative(z, x, y);
    }
    [[nodiscard]] double derivative(Property z, Property x, Property y) const noexcept {
        return slopes().derivative(z, x, y);
    }

    // dz/dx along the saturation line: dps/dT, dh'/dp of saturated liquid, dv''/dT of saturated vapour; in wet steam at
    // constant quality, z or x other than p and T then being the mixture's. NaN of any other state. dps/dT is the slope
    // of the saturation-pressure equation, the basic equation of region 4, as that of B is of the same line backwards;
    // Clausius-Clapeyron holds as far as Slopes says.
    template <Property z, Property x>
    [[nodiscard]] double along_line() const noexcept {
        return slopes_along_line().along_line(z, x);
    }
    [[nodiscard]] double along_line(Property z, Property x) const noexcept {
        return slopes_along_line().along_line(z, x);
    }
    [[nodiscard]] Slopes slopes_along_line() const noexcept {
        return Slopes(bridge::slopes_along_line(at_));
    }

    // Second derivatives by p and y, which is T, h or s, of a single phase; NaN in wet steam.
    [[nodiscard]] Curvatures curvatures(Property y) const noexcept {
        return Curvatures(bridge::curvatures(at_, y));
    }

    // The phases of wet steam or of a saturated phase; failed states of any other.
    [[nodiscard]] State liquid() const noexcept { return State(bridge::liquid_of(at_)); }
    [[nodiscard]] State vapour() const noexcept { return State(bridge::vapour_of(at_)); }

private:
    static constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    bridge::Resolved at_;
};

// Resolvers. On the saturation line, where (p, T) leaves the quality open, of_pt is the saturated liquid. The families
// differ in (p, T), (p, h), (p, s), (h, s), (p, x) and the saturated phases; the other pairs have no backward equation. In
// region 3 the B-family's d() of (p, h), (p, s) and (h, s) is by the backward equation of the volume, all else at the
// volume of p and T, as the exports have it: d() is not 1/v() there.
#define VAPRIX_OF(name, first, second)                                    \
    [[nodiscard]] inline State name(double first, double second,          \
                                    Family family = Family::O) noexcept { \
        return State(bridge::name(first, second, family));                \
    }
VAPRIX_OF(of_pt, pressure, temperature)
VAPRIX_OF(of_ph, pressure, enthalpy)
VAPRIX_OF(of_ps, pressure, entropy)
VAPRIX_OF(of_pv, pressure, volume)
VAPRIX_OF(of_pd, pressure, density)
VAPRIX_OF(cold_of_pv, pressure, volume)  // liquid below its temperature of greatest density
VAPRIX_OF(of_px, pressure, quality)
VAPRIX_OF(of_tx, temperature, quality)
VAPRIX_OF(of_td, temperature, density)
VAPRIX_OF(of_tv, temperature, volume)
VAPRIX_OF(of_th, temperature, enthalpy)  // of several states the one of lowest pressure
VAPRIX_OF(of_ts, temperature, entropy)
VAPRIX_OF(next_of_th, temperature, enthalpy)  // the one of next higher pressure, if there is one
VAPRIX_OF(next_of_ts, temperature, entropy)
VAPRIX_OF(of_hs, enthalpy, entropy)
VAPRIX_OF(of_vh, volume, enthalpy)
VAPRIX_OF(of_vs, volume, entropy)
VAPRIX_OF(of_dh, density, enthalpy)
VAPRIX_OF(of_ds, density, entropy)
#undef VAPRIX_OF

// Saturated phases, single-phase states that know of their partner.
#define VAPRIX_OF(name, given)                                                          \
    [[nodiscard]] inline State name(double given, Family family = Family::O) noexcept { \
        return State(bridge::name(given, family));                                      \
    }
VAPRIX_OF(liquid_of_t, temperature)
VAPRIX_OF(vapour_of_t, temperature)
VAPRIX_OF(liquid_of_p, pressure)
VAPRIX_OF(vapour_of_p, pressure)
#undef VAPRIX_OF

}  // namespace v0
}  // namespace vaprix
