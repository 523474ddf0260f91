// SPDX-License-Identifier: MIT
#include "basic_equations.hpp"

#include <algorithm>
#include <initializer_list>

#include "csv.hpp"

namespace reference {

using namespace literals;

const Quad gas_constant = 0.461526_q;
const Quad t_crit = 647.096_q;
const Quad p_crit = 22.064_q;
const Quad d_crit = 322_q;

namespace {

// A dimensionless free energy of two variables with its derivatives: sum n x^I y^J, plus what the
// caller adds. Powers are divided by x and y for the derivatives: neither is zero inside a region.
struct Potential {
    Quad f = 0, x = 0, xx = 0, y = 0, yy = 0, xy = 0;
    Quad size_f = 0, size_x = 0, size_xx = 0;  // sums of the absolute terms
    Quad size_y = 0, size_yy = 0, size_xy = 0;

    void add(const std::vector<Term>& terms, Quad at_x, Quad at_y) {
        for (const Term& term : terms) {
            const Quad value = term.n * power(at_x, term.i) * power(at_y, term.j);
            const Quad by_x = value * term.i / at_x;
            const Quad by_y = value * term.j / at_y;
            const Quad by_xx = by_x * (term.i - 1) / at_x;
            const Quad by_yy = by_y * (term.j - 1) / at_y;
            const Quad by_xy = by_x * term.j / at_y;
            f += value;
            x += by_x;
            xx += by_xx;
            y += by_y;
            yy += by_yy;
            xy += by_xy;
            size_f += magnitude(value);
            size_x += magnitude(by_x);
            size_xx += magnitude(by_xx);
            size_y += magnitude(by_y);
            size_yy += magnitude(by_yy);
            size_xy += magnitude(by_xy);
        }
    }
};

Quad largest(std::initializer_list<Quad> ratios) {
    Quad result = 0;
    for (const Quad ratio : ratios)
        if (magnitude(ratio) > result) result = magnitude(ratio);
    return result;
}

// Of energies in units of R T, which are judged against their size plus R T.
Quad first_condition(const Potential& potential, Quad y) {
    return largest({potential.size_f / (magnitude(potential.f) + 1),
                    y * potential.size_y / (magnitude(y * potential.y) + 1),
                    potential.size_x / potential.x});
}

// Properties from gamma(pi, tau) = g/(RT): v, v_p and v_t first, all others by general relations.
// 1000 is the ratio of MPa m3/kg to kJ/kg.
State from_gibbs(const Potential& gamma, Quad p, Quad t, Quad p_star, Quad tau) {
    State x{};
    const Quad r = gas_constant;
    x.p = p;
    x.t = t;
    x.v = r * t * gamma.x / p_star / 1000;
    x.v_p = r * t * gamma.xx / (p_star * p_star) / 1000;
    x.v_t = r * (gamma.x - tau * gamma.xy) / p_star / 1000;
    x.d = 1 / x.v;
    x.p_d = -x.v * x.v / x.v_p;
    x.p_t = -x.v_t / x.v_p;
    x.g = r * t * gamma.f;
    x.s = r * (tau * gamma.y - gamma.f);
    x.h = r * t * tau * gamma.y;
    x.u = x.h - 1000 * p * x.v;
    x.f = x.g - 1000 * p * x.v;
    x.cp = -r * tau * tau * gamma.yy;
    x.cv = x.cp + 1000 * t * x.v_t * x.v_t / x.v_p;
    x.w = sqrtq(1e6 * x.p_d * x.cp / x.cv);
    x.first_condition = first_condition(gamma, tau);
    x.second_condition =
        largest({gamma.size_xx / gamma.xx, gamma.size_xy / gamma.xy, gamma.size_yy / gamma.yy});
    return x;
}

// Regions 2 and 5: ideal-gas part ln pi + sum n tau^J and a residual part in (pi, tau - shift).
State from_gas(const std::vector<Term>& ideal, const std::vector<Term>& residual, Quad shift,
               Quad t_star, Quad p, Quad t) {
    const Quad tau = t_star / t;
    Potential gamma;
    gamma.add(ideal, p, tau);
    gamma.add(residual, p, tau - shift);
    gamma.f += logq(p);
    gamma.x += 1 / p;
    gamma.xx -= 1 / (p * p);
    return from_gibbs(gamma, p, t, 1, tau);
}

// Coefficients n[1] ... of a one-column table.
std::vector<Quad> read_list(const char* path) {
    std::vector<Quad> n(1);
    for (const Term& term : read_terms(path)) n.push_back(term.n);
    return n;
}

const std::vector<Quad>& b23() {
    static const std::vector<Quad> n = read_list("if97/t01_b23.csv");
    return n;
}

const std::vector<Quad>& saturation() {
    static const std::vector<Quad> n = read_list("if97/t34_saturation.csv");
    return n;
}

}  // namespace

State region1(Quad p, Quad t) {
    static const auto table = read_terms("if97/t02_region1.csv");
    static const Quad p_star = 16.53_q, x0 = 7.1_q, y0 = 1.222_q;
    const Quad tau = 1386 / t;
    Potential gamma;
    gamma.add(table, x0 - p / p_star, tau - y0);
    gamma.x = -gamma.x;  // the variable of the table is 7.1 - pi
    gamma.xy = -gamma.xy;
    return from_gibbs(gamma, p, t, p_star, tau);
}

State region2(Quad p, Quad t) {
    static const auto ideal = read_terms("if97/t10_region2_ideal.csv");
    static const auto residual = read_terms("if97/t11_region2_residual.csv");
    return from_gas(ideal, residual, 0.5, 540, p, t);
}

State region5(Quad p, Quad t) {
    static const auto ideal = read_terms("if97/t37_region5_ideal.csv");
    static const auto residual = read_terms("if97/t38_region5_residual.csv");
    return from_gas(ideal, residual, 0, 1000, p, t);
}

State region3(Quad d, Quad t) {
    static const auto table = read_terms("if97/t30_region3.csv");
    static const std::vector<Term> sum(table.begin() + 1, table.end());
    const Quad logarithm = table.front().n;  // row 1: n ln(delta)
    const Quad delta = d / d_crit, tau = t_crit / t, r = gas_constant;
    Potential phi;
    phi.add(sum, delta, tau);
    phi.f += logarithm * logq(delta);
    phi.x += logarithm / delta;
    phi.xx -= logarithm / (delta * delta);

    State x{};
    x.t = t;
    x.d = d;
    x.v = 1 / d;
    x.p = d * r * t * delta * phi.x / 1000;
    x.p_d = r * t * delta * (2 * phi.x + delta * phi.xx) / 1000;
    x.p_t = d * r * delta * (phi.x - tau * phi.xy) / 1000;
    x.v_p = -x.v * x.v / x.p_d;
    x.v_t = -x.v_p * x.p_t;
    x.s = r * (tau * phi.y - phi.f);
    x.u = r * t * tau * phi.y;
    x.f = r * t * phi.f;
    x.h = x.u + 1000 * x.p * x.v;
    x.g = x.f + 1000 * x.p * x.v;
    x.cv = -r * tau * tau * phi.yy;
    x.cp = x.cv + 1000 * t * x.p_t * x.p_t / (d * d * x.p_d);
    x.w = sqrtq(1e6 * x.p_d * x.cp / x.cv);
    x.first_condition = first_condition(phi, tau);
    const Quad size_d = 2 * phi.size_x + delta * phi.size_xx;
    x.second_condition = largest({size_d / (2 * phi.x + delta * phi.xx), phi.size_yy / phi.yy});
    return x;
}

Quad natural_scale(Quad State::*quantity, const State& x) {
    const Quad size = magnitude(x.*quantity);
    for (const auto energy : {&State::h, &State::u, &State::g, &State::f})
        if (quantity == energy) return size + gas_constant * x.t;
    if (quantity == &State::s) return size + gas_constant;
    if (quantity == &State::v_t) return size + x.v / x.t;
    return size;
}

double rounding_tolerance(Quad State::*quantity, const State& x) {
    constexpr double floor = 2e-13, per_condition = 8 * 0x1p-53;
    bool second = false;
    for (const auto derivative :
         {&State::cp, &State::cv, &State::w, &State::v_p, &State::v_t, &State::p_d, &State::p_t})
        second = second || quantity == derivative;
    const Quad condition = second ? x.second_condition : x.first_condition;
    return std::max(floor, per_condition * static_cast<double>(condition));
}

Quad psat(Quad t) {
    const auto& n = saturation();
    const Quad theta = t + n[9] / (t - n[10]);
    const Quad a = theta * theta + n[1] * theta + n[2];
    const Quad b = n[3] * theta * theta + n[4] * theta + n[5];
    const Quad c = n[6] * theta * theta + n[7] * theta + n[8];
    return power(2 * c / (sqrtq(b * b - 4 * a * c) - b), 4);
}

Quad tsat(Quad p) {
    const auto& n = saturation();
    const Quad beta = sqrtq(sqrtq(p));
    const Quad e = beta * beta + n[3] * beta + n[6];
    const Quad f = n[1] * beta * beta + n[4] * beta + n[7];
    const Quad g = n[2] * beta * beta + n[5] * beta + n[8];
    const Quad d = -2 * g / (f + sqrtq(f * f - 4 * e * g));
    const Quad sum = n[10] + d;
    return (sum - sqrtq(sum * sum - 4 * (n[9] + n[10] * d))) / 2;
}

// Central difference: with 34 digits a step of 1e-9 p leaves an error of about 1e-18.
Quad tsat_p(Quad p) {
    const Quad step = p * 1e-9;
    return (tsat(p + step) - tsat(p - step)) / (2 * step);
}

Quad p_b23(Quad t) {
    const auto& n = b23();
    return n[1] + n[2] * t + n[3] * t * t;
}

Quad t_b23(Quad p) {
    const auto& n = b23();
    return n[4] + sqrtq((p - n[5]) / n[3]);
}

}  // namespace reference
