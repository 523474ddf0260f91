// SPDX-License-Identifier: MIT
//
// Finds where density, enthalpy and entropy of the saturated phases have their extrema and what they
// are there and at the ends of the equations, fits the saturation temperature as polynomials of them,
// where Newton's method starts, and prints regions/tables/saturated_limits.hpp.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "frame/constants.hpp"
#include "least_squares.hpp"
#include "regions/saturation_line.hpp"
#include "state/wet.hpp"

namespace {

using namespace vaprix;
using Of = std::function<double(const State&)>;

double at(const Of& y, double t) { return y(wet_state<Asked{.wet = true}>(psat(t), t)); }

double density(const State& phase) {
    return phase.region == Region::three ? phase.d : 1 / single<property::v>(phase);
}
template <const auto& property>
double of_liquid(const State& wet) {
    return single<property>(liquid_end(wet));
}
template <const auto& property>
double of_vapour(const State& wet) {
    return single<property>(vapour_end(wet));
}

// Temperature between low and high at which y is greatest, by golden sections. Rounding hides it by
// some 1e-6 K, over which y does not change.
double greatest(const Of& y, double low, double high) {
    const double golden = (std::sqrt(5.0) - 1) / 2;
    while (high - low > 1e-7) {
        const double a = high - golden * (high - low);
        const double b = low + golden * (high - low);
        (at(y, a) > at(y, b) ? high : low) = at(y, a) > at(y, b) ? b : a;
    }
    return 0.5 * (low + high);
}

// The last temperature at which the coexisting densities are expanded and not estimated.
double last_solved() {
    double low = 647;
    double high = T_crit;
    for (double middle = low; middle = 0.5 * (low + high), middle != low && middle != high;) {
        (p_crit - psat(middle) >= estimated_zone ? low : high) = middle;
    }
    return low;
}

// Prints what x is of, between two of it, as a polynomial in x: T unless the unit says otherwise.
void print_fit(const std::string& name, double from, double to, int degree,
               const std::function<Real(double)>& x_of, const char* unit = "K") {
    constexpr int samples = 4000;
    std::vector<Exponents> powers;
    for (int k = 0; k <= degree; ++k) powers.push_back({k, 0});
    std::vector<Row> rows;
    for (int i = 0; i <= samples; ++i) {
        // dense at the ends
        const double at = from + (to - from) * 0.5 * (1 - std::cos(i * std::acos(-1.0) / samples));
        Row row;
        for (const Exponents& power : powers) row.push_back(std::pow(x_of(at), power.I));
        row.push_back(Real(at));
        rows.push_back(row);
    }
    const auto [n, worst] = fit(rows);
    std::printf("\n// Within %.2Lg %s.\n", worst, unit);
    print_terms(("start_" + name).c_str(), powers, n);
}

// t_max: where y is greatest, T_min where it has no maximum.
void print_limits(const std::string& name, const Of& y, double t_max, double edge,
                  double critical) {
    std::printf(
        "\ninline constexpr SaturatedLimits limits_%s{\n    %.17g, %.17g, %.17g, %.17g,\n"
        "    %.17g, %.17g, %.17g, %.17g};\n",
        name.c_str(), t_max, at(y, T_min), at(y, t_max), at(y, T_13),
        at(y, std::nextafter(T_13, T_crit)), at(y, edge), at(y, std::nextafter(edge, T_crit)),
        critical);
}

// Above 623.15 K, of the root that the coexisting densities are expanded in.
void print_dense(const std::string& name, const Of& y, double edge, double critical) {
    const auto beside_critical = [&](double root) {
        const double t = T_crit - (root * root - tables::coexisting_t_crit_beyond);
        return Real(at(y, std::clamp(t, T_13_dense, edge))) / Real(critical) - 1;
    };
    print_fit(name + "_dense", coexisting_root(edge), coexisting_root(T_13_dense), 6,
              beside_critical, "K^(1/2)");
}

void print_monotonic(const std::string& name, const Of& y, double edge, double critical) {
    print_limits(name, y, T_min, edge, critical);
    const bool logarithmic = name == "d2";
    print_fit(name, T_min, T_13, logarithmic ? 7 : 6, [&](double t) {
        return logarithmic ? std::log(Real(at(y, t))) : Real(at(y, t)) / Real(critical);
    });
    print_dense(name, y, edge, critical);
}

// The maximum is between two temperatures.
void print_with_maximum(const std::string& name, const Of& y, double from, double to, double edge,
                        double critical) {
    const double t_max = greatest(y, from, to);
    print_limits(name, y, t_max, edge, critical);
    const auto root = [&, y_max = at(y, t_max)](double t) {
        return std::sqrt(std::fmax(Real(y_max - at(y, t)), Real(0)));
    };
    print_fit(name, t_max, T_13, 8, root);
    print_fit(name + "_cold", T_min, t_max, 8, root);
    print_dense(name, y, edge, critical);
}

}  // namespace

int main() {
    const double edge = last_solved();
    std::printf(R"(// SPDX-License-Identifier: MIT
// Generated by tools/saturated_limits, do not edit.
//
// Density, enthalpy and entropy of saturated liquid (1) and vapour (2), d in kg/m3, h in kJ/kg,
// s in kJ/(kg K), where their branches end, by our own evaluation; and our own start values for
// the saturation temperature, K, up to 623.15 K: sum n x^I with x = y/y_crit, for the density of
// vapour ln d, and where y has a maximum sqrt(y_max - y); above, of the root that the coexisting
// densities are expanded in, with x = y/y_crit - 1.
#pragma once

#include "frame/polynomial.hpp"

namespace vaprix::tables {

struct SaturatedLimits {
    double t_max;          // temperature of the maximum, K; 273.15 where there is none
    double y_min;          // at 273.15 K
    double y_max;          // at t_max
    double y_13;           // at 623.15 K by regions 1 and 2
    double y_13_dense;     // beside it by region 3
    double y_solved;       // at t_solved, from the equation's densities
    double y_estimated;    // beside it, from densities estimated
    double y_crit;         // at the critical point
};

// Up to here dsat3 has the coexisting densities of the equation, beyond it estimates them.
inline constexpr double t_solved = %.17g;  // K
)",
                edge);
    const double h_crit = region3::h(d_crit, T_crit);
    const double s_crit = region3::s(d_crit, T_crit);
    print_with_maximum(
        "d1", [](const State& wet) { return density(liquid_end(wet)); }, 275, 280, edge, d_crit);
    print_monotonic(
        "d2", [](const State& wet) { return density(vapour_end(wet)); }, edge, d_crit);
    print_monotonic("h1", of_liquid<property::h>, edge, h_crit);
    print_with_maximum("h2", of_vapour<property::h>, 480, 530, edge, h_crit);
    print_monotonic("s1", of_liquid<property::s>, edge, s_crit);
    print_monotonic("s2", of_vapour<property::s>, edge, s_crit);
    std::printf("\n}  // namespace vaprix::tables\n");
}
