// SPDX-License-Identifier: MIT
// Every property of a single phase in quadruple precision, by the letters that the names of exports
// begin with.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "basic_equations.hpp"

namespace reference {

// A state with the pressure that was given, which in region 3 is not quite that of the density.
struct Known : State {
    int region;
    Quad given, v_t = State::v_t(), h_p = 1000 * (v() - t * v_t);
    Known(int number, Quad p_or_d, Quad temperature, Quad pressure)
        : State(number, p_or_d, temperature), region(number), given(pressure) {}
    Quad eta() const { return once(eta_, published::viscosity<Quad>); }
    Quad lambda() const { return once(lambda_, published::conductivity<Quad>); }

private:
    Quad once(std::optional<Quad>& known, Quad (*of)(Quad t, Quad d)) const {
        if (!known) known = of(t, d());
        return *known;
    }
    mutable std::optional<Quad> eta_, lambda_;
};

// Ideal gas: the limit of low pressure, whose residual part is below the last digit.
inline Quad g_ideal(bool hot, const Known& x) {
    const Quad low = 1e-30, limit = published::State<Quad>(hot ? 5 : 2, low, x.t).g();
    return limit + gas_constant * x.t * published::logarithm(x.given / low);
}
inline Quad fugacity_coefficient(const Known& x) {
    return published::exponential((x.g() - g_ideal(x.region == 5, x)) / gas_constant / x.t);
}

// How well a double can do: as a potential and its first derivatives, as the second ones, as a
// formula in which up to three sums of second derivatives meet, as a correlation of transport (their
// own test is sharper, the density of the state being exact there).
enum Kind { first, second, formula, transport };
struct Property {
    Quad (*of)(const Known&);
    Kind kind;
    Quad (*zero)(const Known&) = nullptr;  // added to the size of what has an arbitrary zero
};
inline constexpr Quad wavelength = 0.5;  // micrometres, as strata::state() gives it
#define IS(expression) [](const Known& x) -> Quad { return expression; }
inline const std::map<std::string, Property> properties = {
    {"V", {IS(x.v()), first}},
    {"D", {IS(x.d()), first}},
    {"P", {IS(x.p()), first}},
    {"H", {IS(x.h()), first, IS(gas_constant* x.t)}},
    {"U", {IS(x.u()), first, IS(gas_constant* x.t)}},
    {"G", {IS(x.g()), first, IS(gas_constant* x.t)}},
    {"F", {IS(x.f()), first, IS(gas_constant* x.t)}},
    {"S", {IS(x.s()), first, IS(gas_constant + 0 * x.t)}},
    {"CP", {IS(x.cp()), second}},
    {"CV", {IS(x.cv()), second}},
    {"W", {IS(x.w()), second}},
    {"Z", {IS(1000 * x.given * x.v() / gas_constant / x.t), formula}},
    {"ALV", {IS(x.v_t / x.v()), formula}},
    {"ALP", {IS(-x.v_t / x.v_p() / x.given), formula}},
    {"BET", {IS(-1 / x.v_p() / x.given), formula}},
    {"CAPT", {IS(-x.v_p() / x.v()), formula}},
    {"CAP", {IS(x.w() * x.w() / (1000000 * x.given * x.v())), formula}},
    {"GAM", {IS(x.cp() / x.cv()), formula}},
    {"RJT", {IS(-x.h_p / x.cp()), formula}},
    {"DDDH", {IS(-x.v_t / x.cp() / x.v() / x.v()), formula}},
    {"DDDP", {IS(-x.v_p() / x.v() / x.v()), formula}},
    {"DHDP", {IS(x.h_p), formula}},
    {"DVDH", {IS(x.v_t / x.cp()), formula}},
    {"DVDP", {IS(x.v_p()), formula}},
    {"DVDT", {IS(x.v_t), formula}},
    {"G0", {IS(g_ideal(x.t > 1073.15, x)), formula, IS(gas_constant* x.t)}},
    {"FUG", {IS(x.given * fugacity_coefficient(x)), formula}},
    {"ETA", {IS(x.eta() * 1000000), transport}},
    {"VIS", {IS(x.eta()), transport}},
    {"VNU", {IS(x.eta() * x.v() * 1000000), transport}},
    {"VKI", {IS(x.eta() * x.v()), transport}},
    {"TCO", {IS(x.lambda() * 1000), transport}},
    {"TCON", {IS(x.lambda()), transport}},
    {"PR", {IS(x.eta() * x.cp() / x.lambda() * 1000), transport}},
    {"A", {IS(x.lambda() * 1000 / (x.d() * x.cp())), transport}},
    {"EPS", {IS(published::dielectric_constant(x.t, x.d())), transport}},
    {"REF", {IS(published::refractive_index(x.t, x.d(), wavelength)), transport}}};

#undef IS

// (dv/dT)_p and (dh/dp)_T change sign: v/T and 1 kJ/(kg MPa) are added to their sizes.
inline Quad scale_of(const Property& property, const Known& x) {
    Known larger = x;
    larger.v_t = magnitude(x.v_t) + x.v() / x.t;
    larger.h_p = magnitude(x.h_p) + 1;
    return magnitude(property.of(property.kind == formula ? larger : x)) +
           (property.zero != nullptr ? property.zero(x) : Quad(0));
}

}  // namespace reference
