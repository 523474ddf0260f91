// SPDX-License-Identifier: MIT
#include "baseline.hpp"

#include <cmath>
#include <cstddef>

#include "frame/constants.hpp"
#include "regions/tables/b23.hpp"
#include "regions/tables/region1.hpp"
#include "regions/tables/region1_backward.hpp"
#include "regions/tables/region2.hpp"
#include "regions/tables/region2_backward.hpp"
#include "regions/tables/region3.hpp"
#include "regions/tables/region3_backward.hpp"
#include "regions/tables/region5.hpp"
#include "regions/tables/saturation.hpp"

namespace baseline {
namespace {

using vaprix::R;
using vaprix::Term;
namespace tables = vaprix::tables;

// d^(i+j)/dx^i dy^j of sum n x^I y^J
template <std::size_t N>
double sum(const Term (&terms)[N], double x, double y, int i = 0, int j = 0) {
    double total = 0;
    for (const Term& term : terms) {
        double n = term.n;
        for (int k = 0; k < i; ++k) n *= term.I - k;
        for (int k = 0; k < j; ++k) n *= term.J - k;
        total += n * std::pow(x, term.I - i) * std::pow(y, term.J - j);
    }
    return total;
}

// i-th derivative of ln x
double log_derivative(double x, int i) {
    return i == 0 ? std::log(x) : i == 1 ? 1 / x : -1 / (x * x);
}

}  // namespace

struct Region1 {
    static constexpr double p_star = 16.53, T_star = 1386;
    static double gamma(double pi, double tau, int i, int j) {
        return (i == 1 ? -1 : 1) * sum(tables::region1, 7.1 - pi, tau - 1.222, i, j);
    }
};

struct Region2 {
    static constexpr double p_star = 1, T_star = 540;
    static double gamma(double pi, double tau, int i, int j) {
        const double ideal = i == 0 ? sum(tables::region2_ideal, 1, tau, 0, j) : 0;
        const double log = j == 0 ? log_derivative(pi, i) : 0;
        return ideal + log + sum(tables::region2_residual, pi, tau - 0.5, i, j);
    }
};

struct Region5 {
    static constexpr double p_star = 1, T_star = 1000;
    static double gamma(double pi, double tau, int i, int j) {
        const double ideal = i == 0 ? sum(tables::region5_ideal, 1, tau, 0, j) : 0;
        const double log = j == 0 ? log_derivative(pi, i) : 0;
        return ideal + log + sum(tables::region5_residual, pi, tau, i, j);
    }
};

namespace {

template <class Region>
struct State {
    double pi, tau;
    State(double p, double t) : pi(p / Region::p_star), tau(Region::T_star / t) {}
    [[nodiscard]] double gamma(int i, int j) const { return Region::gamma(pi, tau, i, j); }
};

}  // namespace

template <class Region>
double Gibbs<Region>::v(double p, double t) {
    const State<Region> state(p, t);
    return R * t / p * state.pi * state.gamma(1, 0) / 1000;
}

template <class Region>
double Gibbs<Region>::h(double p, double t) {
    const State<Region> state(p, t);
    return R * t * state.tau * state.gamma(0, 1);
}

template <class Region>
double Gibbs<Region>::s(double p, double t) {
    const State<Region> state(p, t);
    return R * (state.tau * state.gamma(0, 1) - state.gamma(0, 0));
}

template <class Region>
double Gibbs<Region>::u(double p, double t) {
    const State<Region> state(p, t);
    return R * t * (state.tau * state.gamma(0, 1) - state.pi * state.gamma(1, 0));
}

template <class Region>
double Gibbs<Region>::g(double p, double t) {
    const State<Region> state(p, t);
    return R * t * state.gamma(0, 0);
}

template <class Region>
double Gibbs<Region>::f(double p, double t) {
    const State<Region> state(p, t);
    return R * t * (state.gamma(0, 0) - state.pi * state.gamma(1, 0));
}

template <class Region>
double Gibbs<Region>::cp(double p, double t) {
    const State<Region> state(p, t);
    return -R * state.tau * state.tau * state.gamma(0, 2);
}

template <class Region>
double Gibbs<Region>::cv(double p, double t) {
    const State<Region> state(p, t);
    const double a = state.gamma(1, 0) - state.tau * state.gamma(1, 1);
    return R * (-state.tau * state.tau * state.gamma(0, 2) + a * a / state.gamma(2, 0));
}

template <class Region>
double Gibbs<Region>::w(double p, double t) {
    const State<Region> state(p, t);
    const double a = state.gamma(1, 0) - state.tau * state.gamma(1, 1);
    const double b = a * a / (state.tau * state.tau * state.gamma(0, 2)) - state.gamma(2, 0);
    return std::sqrt(1000 * R * t * std::pow(state.gamma(1, 0), 2) / b);
}

template struct Gibbs<Region1>;
template struct Gibbs<Region2>;
template struct Gibbs<Region5>;

namespace {

struct State3 {
    double delta, tau;
    State3(double d, double t) : delta(d / vaprix::d_crit), tau(vaprix::T_crit / t) {}
    [[nodiscard]] double phi(int i, int j) const {
        const double log = j == 0 ? tables::region3_log_coefficient * log_derivative(delta, i) : 0;
        return log + sum(tables::region3, delta, tau, i, j);
    }
};

}  // namespace

double Region3::p(double d, double t) {
    const State3 state(d, t);
    return d * R * t / 1000 * state.delta * state.phi(1, 0);
}

double Region3::h(double d, double t) {
    const State3 state(d, t);
    return R * t * (state.tau * state.phi(0, 1) + state.delta * state.phi(1, 0));
}

double Region3::s(double d, double t) {
    const State3 state(d, t);
    return R * (state.tau * state.phi(0, 1) - state.phi(0, 0));
}

double Region3::u(double d, double t) {
    const State3 state(d, t);
    return R * t * state.tau * state.phi(0, 1);
}

double Region3::g(double d, double t) {
    const State3 state(d, t);
    return R * t * (state.phi(0, 0) + state.delta * state.phi(1, 0));
}

double Region3::f(double d, double t) { return R * t * State3(d, t).phi(0, 0); }

double Region3::cp(double d, double t) {
    const State3 state(d, t);
    const double a = state.delta * (state.phi(1, 0) - state.tau * state.phi(1, 1));
    const double b = state.delta * (2 * state.phi(1, 0) + state.delta * state.phi(2, 0));
    return R * (a * a / b - state.tau * state.tau * state.phi(0, 2));
}

double Region3::cv(double d, double t) {
    const State3 state(d, t);
    return -R * state.tau * state.tau * state.phi(0, 2);
}

double Region3::w(double d, double t) {
    const State3 state(d, t);
    const double a = state.delta * (state.phi(1, 0) - state.tau * state.phi(1, 1));
    const double b = state.delta * (2 * state.phi(1, 0) + state.delta * state.phi(2, 0));
    return std::sqrt(1000 * R * t * (b - a * a / (state.tau * state.tau * state.phi(0, 2))));
}

double t1_ph(double p, double h) { return sum(tables::t1_ph, p, h / 2500 + 1); }
double t1_ps(double p, double s) { return sum(tables::t1_ps, p, s + 2); }

double t2_ph(double p, double h) {
    if (p <= 4) return sum(tables::t2a_ph, p, h / 2000 - 2.1);
    const auto& n = tables::b2bc;
    return p > n[0] + n[1] * h + n[2] * std::pow(h, 2) ? sum(tables::t2c_ph, p + 25, h / 2000 - 1.8)
                                                       : sum(tables::t2b_ph, p - 2, h / 2000 - 2.6);
}

double t2_ps(double p, double s) {
    if (p <= 4) return sum(tables::t2a_ps, std::pow(p, 0.25), s / 2 - 2);
    return s < 5.85 ? sum(tables::t2c_ps, p, 2 - s / 2.9251)
                    : sum(tables::t2b_ps, p, 10 - s / 0.7853);
}

namespace {

double h3ab(double p) {
    const auto& n = tables::h3ab;
    return n[0] + n[1] * p + n[2] * std::pow(p, 2) + n[3] * std::pow(p, 3);
}

}  // namespace

double t_ph(double p, double h) {
    return h <= h3ab(p) ? 760 * sum(tables::t3a_ph, p / 100 + 0.240, h / 2300 - 0.615)
                        : 860 * sum(tables::t3b_ph, p / 100 + 0.298, h / 2800 - 0.720);
}

double t_ps(double p, double s) {
    return s <= 4.41202148223476 ? 760 * sum(tables::t3a_ps, p / 100 + 0.240, s / 4.4 - 0.703)
                                 : 860 * sum(tables::t3b_ps, p / 100 + 0.760, s / 5.3 - 0.818);
}

double v_ph(double p, double h) {
    return h <= h3ab(p) ? 0.0028 * sum(tables::v3a_ph, p / 100 + 0.128, h / 2100 - 0.727)
                        : 0.0088 * sum(tables::v3b_ph, p / 100 + 0.0661, h / 2800 - 0.720);
}

double v_ps(double p, double s) {
    return s <= 4.41202148223476 ? 0.0028 * sum(tables::v3a_ps, p / 100 + 0.187, s / 4.4 - 0.755)
                                 : 0.0088 * sum(tables::v3b_ps, p / 100 + 0.298, s / 5.3 - 0.816);
}

double psat(double t) {
    const auto& n = tables::saturation;
    const double theta = t + n[8] / (t - n[9]);
    const double A = std::pow(theta, 2) + n[0] * theta + n[1];
    const double B = n[2] * std::pow(theta, 2) + n[3] * theta + n[4];
    const double C = n[5] * std::pow(theta, 2) + n[6] * theta + n[7];
    return std::pow(2 * C / (-B + std::pow(std::pow(B, 2) - 4 * A * C, 0.5)), 4);
}

double tsat(double p) {
    const auto& n = tables::saturation;
    const double beta = std::pow(p, 0.25);
    const double E = std::pow(beta, 2) + n[2] * beta + n[5];
    const double F = n[0] * std::pow(beta, 2) + n[3] * beta + n[6];
    const double G = n[1] * std::pow(beta, 2) + n[4] * beta + n[7];
    const double D = 2 * G / (-F - std::pow(std::pow(F, 2) - 4 * E * G, 0.5));
    return (n[9] + D - std::pow(std::pow(n[9] + D, 2) - 4 * (n[8] + n[9] * D), 0.5)) / 2;
}

double tsat_p(double p) {
    const double step = 1e-5 * p;
    return (tsat(p + step) - tsat(p - step)) / (2 * step);
}

double region(double p, double t) {
    if (t > 863.15) return t <= 1073.15 ? 2 : 5;
    if (t <= 623.15) return p > psat(t) ? 1 : 2;
    return p > p_b23(t) ? 3 : 2;
}

double p_b23(double t) {
    const auto& n = tables::b23;
    return n[0] + n[1] * t + n[2] * std::pow(t, 2);
}

}  // namespace baseline
