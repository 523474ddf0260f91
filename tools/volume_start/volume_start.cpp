// SPDX-License-Identifier: MIT
//
// Fits pressure and temperature of regions 1 and 2 as polynomials of the density and of h or s, cell
// by cell, and the pressure as one of the density and the temperature, where iterations start, and
// prints inverse/tables/volume_start.hpp.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
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

constexpr int columns = 8;

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

Samples of_region1(int steps_t, int steps_p) {
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

Samples of_region2(double d_low, double d_high, int steps_t, int steps_p) {
    constexpr double hardly = 1e-6;  // MPa
    Samples samples;
    for (int i = 0; i <= steps_t; ++i) {
        const double t = spread(T_min, T_25, i, steps_t);
        const double limit = t <= T_13 ? psat(t) : t <= T_23_max ? p_b23(t) : p_max;
        const double highest = std::min(limit, p_max);
        const double low = d_low == 0 ? hardly : pressure2(d_low, t, highest);
        const double high = pressure2(d_high, t, highest);
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

// Prints pressure and temperature of a cell by density and a second variable, and their errors.
void print_cell(const Samples& samples, const Of& y, Real y_low, Real y_high, const Of& p,
                const Of& p_unit) {
    const auto [d_low, d_high] = std::ranges::minmax(samples, {}, &Sample::d);
    const Real d_middle = Real(d_low.d + d_high.d) / 2, d_scale = 2 / Real(d_high.d - d_low.d);
    const Real y_middle = (y_low + y_high) / 2, y_scale = 2 / (y_high - y_low);
    const auto fitted = [&](const Of& value, const Of& unit) {
        std::vector<Row> rows;
        for (const Sample& at : samples) {
            const Real u = (Real(at.d) - d_middle) * d_scale, w = (y(at) - y_middle) * y_scale;
            Row row;
            for (int I = 0; I < columns; ++I) {
                for (int J = 0; I + J < columns; ++J)
                    row.push_back(std::pow(u, I) * std::pow(w, J) / unit(at));
            }
            row.push_back(value(at) / unit(at));
            rows.push_back(row);
        }
        return fit(rows);
    };
    const Of t = [](const Sample& at) { return at.t; };
    const Fit of_p = fitted(p, p_unit), of_t = fitted(t, t);
    std::printf("    // within %.1Lg and %.1Lg\n", of_p.worst, of_t.worst);
    std::printf("    {%.8Lef, %.8Lef, %.8Lef, %.8Lef, %.8Lef,\n     {", d_middle, d_scale, y_middle,
                y_scale, y_high);
    for (std::size_t k = 0; k < of_p.x.size(); ++k)
        std::printf("%s{%.8Lef, %.8Lef}", k > 0 ? ",\n      " : "", of_p.x[k], of_t.x[k]);
    std::printf("}},\n");
}

// The two cells of a part, the lower one of a share of y.
void print_part(const Samples& samples, const Of& y, double share, const Of& p, const Of& p_unit) {
    Real low = y(samples.front()), high = low;
    for (const Sample& at : samples) {
        low = std::min(low, y(at));
        high = std::max(high, y(at));
    }
    const Real middle = low + Real(share) * (high - low);
    for (const auto& [from, to] : {std::pair{low, middle}, std::pair{middle, high}}) {
        Samples of_cell;
        std::ranges::copy_if(samples, std::back_inserter(of_cell),
                             [&](const Sample& at) { return y(at) >= from && y(at) <= to; });
        print_cell(of_cell, y, from, to, p, p_unit);
    }
}

void print_region1(const char* variable, const Of& y) {
    constexpr double share = 0.4, beside = 5;  // kg/m3
    const auto& ends = inverse::reduced::d1_ends;
    std::printf("\ninline constexpr VolumeStart start1_%s[] = {\n", variable);
    for (std::size_t part = 0; part + 1 < std::size(ends); ++part) {
        Samples samples;
        std::ranges::copy_if(
            of_region1(60, 40), std::back_inserter(samples), [&](const Sample& at) {
                return at.d >= ends[part] - beside && at.d <= ends[part + 1] + beside;
            });
        print_part(
            samples, y, share, [](const Sample& at) { return at.p; },
            [](const Sample& at) { return 1 / at.compressibility; });
    }
    std::printf("};\n");
}
void print_region2(const char* variable, const Of& y) {
    constexpr double share = 0.35;
    std::printf("\ninline constexpr VolumeStart start2_%s[] = {\n", variable);
    const auto& ends = inverse::reduced::d2_ends;
    for (std::size_t part = 0; part + 1 < std::size(ends); ++part) {
        const Of pv = [](const Sample& at) { return at.p / at.d; };
        print_part(of_region2(ends[part], ends[part + 1], 80, 30), y, share, pv, pv);
    }
    std::printf("};\n");
}

// Pressure by density and temperature: of vapour Z - 1, the compressibility factor's virial form.
void print_of_temperature() {
    using namespace inverse::reduced;
    constexpr int steps_t = 36, steps_p = 24;
    print_fit(
        "p1_start_t", of_region1(steps_t, steps_p), 0, 6, 6,
        [](const Sample& at) { return d1(at.d); }, [](const Sample& at) { return t1(at.t); },
        [](const Sample& at) { return at.p; },
        [](const Sample& at) { return 1 / at.compressibility; }, "of the volume at that pressure");
    Samples vapour;
    constexpr double d_ends[] = {0, 15, 100, 400};
    for (std::size_t part = 0; part + 1 < std::size(d_ends); ++part)
        std::ranges::copy(of_region2(d_ends[part], d_ends[part + 1], 50, steps_p),
                          std::back_inserter(vapour));
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
// or temperature. By h and s in cells, as inverse/volume_reduced.hpp has them, two for each part by density;
// in region 2 p over the density instead of p, and of the temperature Z - 1, the region being one.
#pragma once

#include <cstddef>

#include "frame/polynomial.hpp"

namespace vaprix::tables {

// Sums of u^i w^j, i + j < %d, of pressure and temperature, u and w going from -1 to 1 across the cell.
inline constexpr std::size_t volume_start_columns = %d;
struct VolumeStart {
    float d_middle, d_scale, y_middle, y_scale;
    float y_end;  // where the cell ends
    float n[volume_start_columns * (volume_start_columns + 1) / 2][2];
};
)",
                columns, columns);
    const Of h = [](const Sample&at) { return at.h; }, s = [](const Sample&at) { return at.s; };
    print_region1("h", h);
    print_region1("s", s);
    print_region2("h", h);
    print_region2("s", [](const Sample& at) { return at.s + R * std::log(at.d); });
    print_of_temperature();
    std::printf("\n}  // namespace vaprix::tables\n");
}
