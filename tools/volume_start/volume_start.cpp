// SPDX-License-Identifier: MIT
//
// Fits pressure and temperature of regions 1 and 2 as polynomials of the density and of h or s, and
// the pressure as one of the density and the temperature, where iterations start, and prints
// inverse/tables/volume_start.hpp.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "frame/constants.hpp"
#include "inverse/volume_reduced.hpp"
#include "least_squares.hpp"
#include "regions/b23.hpp"
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace vaprix;

struct Sample {
    double p, t, d, h, s;
    double compressibility;  // -(dv/dp)/v, 1/MPa
};
using Samples = std::vector<Sample>;
using Of = std::function<Real(const Sample&)>;

template <class Equation>
Sample sample(double p, double t) {
    const Tangent<double> v = Equation::v_tangent_p(p, t);
    return {p, t, 1 / v.y, Equation::h(p, t), Equation::s(p, t), -v.y_x / v.y};
}

// Between low and high, dense at the ends.
double spread(double low, double high, int k, int steps) {
    return low + (high - low) * 0.5 * (1 - std::cos(k * std::acos(-1.0) / steps));
}

Samples of_region1() {
    constexpr int steps_t = 36, steps_p = 24;
    Samples samples;
    for (int i = 0; i <= steps_t; ++i) {
        const double t = spread(T_min, T_13, i, steps_t);
        for (int j = 0; j <= steps_p; ++j) {
            samples.push_back(sample<region1>(spread(psat(t), p_max, j, steps_p), t));
        }
    }
    return samples;
}

// Pressure of region 2 at which the density is d, at most `highest`.
double pressure2(double d, double t, double highest) {
    double low = 0, high = highest;
    for (int k = 0; k < 60; ++k) {
        const double middle = 0.5 * (low + high);
        (1 / region2::v(middle, t) < d ? low : high) = middle;
    }
    return high;
}

Samples of_region2(std::size_t part) {
    constexpr int steps_t = 50, steps_p = 24;
    constexpr double hardly = 1e-6;  // MPa
    Samples samples;
    for (int i = 0; i <= steps_t; ++i) {
        const double t = spread(T_min, T_25, i, steps_t);
        const double limit = t <= T_13 ? psat(t) : t <= T_23_max ? p_b23(t) : p_max;
        const double highest = std::min(limit, p_max);
        const double low =
            part == 0 ? hardly : pressure2(inverse::reduced::d2_ends[part], t, highest);
        const double high = pressure2(inverse::reduced::d2_ends[part + 1], t, highest);
        if (!(low < high)) continue;
        for (int j = 0; j <= steps_p; ++j) {
            samples.push_back(sample<region2>(spread(low, high, j, steps_p), t));
        }
    }
    return samples;
}

// Prints the fit of a value by terms x^I y^J, I from a lowest one, I + J up to a degree, and its
// error in units.
void print_fit(const std::string& name, const Samples& samples, int lowest_x, int degree_x,
               int degree, const Of& x, const Of& y, const Of& value, const Of& unit,
               const char* unit_name) {
    std::vector<Exponents> terms;
    for (int I = lowest_x; I <= degree_x; ++I) {
        for (int J = 0; I + J <= degree; ++J) terms.push_back({I, J});
    }
    std::vector<Row> rows;
    for (const Sample& at : samples) {
        Row row;
        for (const auto& [I, J] : terms)
            row.push_back(std::pow(x(at), I) * std::pow(y(at), J) / unit(at));
        row.push_back(value(at) / unit(at));
        rows.push_back(row);
    }
    const auto [n, worst] = fit(rows);
    std::printf("\n// Within %.1Lg %s.\n", worst, unit_name);
    print_terms(name.c_str(), terms, n);
}

// Pressure and temperature by density and a second variable.
void print_region1(const std::string& variable, const Of& y) {
    const Samples samples = of_region1();
    const Of x = [](const Sample& at) { return inverse::reduced::d1(at.d); };
    const auto print = [&](const std::string& what, const Of& value, const Of& unit,
                           const char* name) {
        print_fit(what + "1_start_" + variable, samples, 0, 7, 7, x, y, value, unit, name);
    };
    print(
        "p", [](const Sample& at) { return at.p; },
        [](const Sample& at) { return 1 / at.compressibility; }, "of the volume at that pressure");
    print(
        "t", [](const Sample& at) { return at.t; }, [](const Sample&) { return 1; }, "K");
}
void print_region2(const std::string& variable, const Of& y) {
    for (std::size_t part = 0; part < inverse::reduced::parts; ++part) {
        const Samples samples = of_region2(part);
        const Of x = [part](const Sample& at) { return inverse::reduced::d2(part, at.d); };
        const auto print = [&](const std::string& what, const Of& value) {
            print_fit(what + "2_start_" + variable + std::to_string(part), samples, 0, 4, 6, x, y,
                      value, value, "of it");
        };
        print("pv", [](const Sample& at) { return at.p / at.d; });
        print("t", [](const Sample& at) { return at.t; });
    }
}

// Pressure by density and temperature: of vapour Z - 1, the compressibility factor's virial form.
void print_of_temperature() {
    using namespace inverse::reduced;
    print_fit(
        "p1_start_t", of_region1(), 0, 6, 6, [](const Sample& at) { return d1(at.d); },
        [](const Sample& at) { return t1(at.t); }, [](const Sample& at) { return at.p; },
        [](const Sample& at) { return 1 / at.compressibility; }, "of the volume at that pressure");
    Samples vapour;
    for (std::size_t part = 0; part < parts; ++part)
        std::ranges::copy(of_region2(part), std::back_inserter(vapour));
    const Of z = [](const Sample& at) { return at.p / (at.d * (R / 1000) * at.t); };
    print_fit(
        "z2_start_t", vapour, 1, 6, 8, [](const Sample& at) { return d2(at.d); },
        [](const Sample& at) { return t2(at.t); }, [z](const Sample& at) { return z(at) - 1; }, z,
        "of the compressibility factor");
}

}  // namespace

int main() {
    std::printf(R"(// SPDX-License-Identifier: MIT
// Generated by tools/volume_start, do not edit.
//
// Our own start values for pressure, MPa, and temperature, K, of regions 1 and 2 by the density and h, s
// or temperature, reduced as inverse/volume_reduced.hpp has it: sum n x^I y^J; in region 2, of whose three parts
// by density each has its own, p over the density instead of p, and of the temperature Z - 1, in one part.
#pragma once

#include "frame/polynomial.hpp"

namespace vaprix::tables {
)");
    using namespace inverse::reduced;
    print_region1("h", [](const Sample& at) { return h1(at.h); });
    print_region1("s", [](const Sample& at) { return s1(at.s); });
    print_region2("h", [](const Sample& at) { return h2(at.h); });
    print_region2("s", [](const Sample& at) { return s2(at.s + R * std::log(at.d)); });
    print_of_temperature();
    std::printf("\n}  // namespace vaprix::tables\n");
}
