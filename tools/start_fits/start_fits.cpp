// SPDX-License-Identifier: MIT
//
// Fits the seven polynomials v(p, T) that start the density iteration in region 3, and prints
// regions/tables/region3_start.hpp. With --share it measures the committed header instead: in which
// share of region 3 the start brackets the density.
//
// The iteration brackets the density by +-0.1 % around 1/v. At the critical point v(p, T) has a
// root singularity and no polynomial can hold 0.1 %. So the fits do not minimize the mean error:
// they maximize the area of the p-T plane where the error stays below 0.1 %, and give up the rest.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <utility>
#include <vector>

#include "frame/polynomial.hpp"
#include "region3.hpp"
#include "regions/tables/region3_start.hpp"
#include "share.hpp"
#include "term_selection.hpp"

namespace {

using namespace start_fits;

constexpr Real tolerance = 1e-3L;  // half-width of the bracket, relative

constexpr std::size_t terms = 45;  // in each fit
constexpr int max_exponent = 12;   // of x and of y
constexpr int grid_lines = 40;     // in either direction
constexpr int selections = 12;     // rounds that choose terms
constexpr int rounds = 52;         // rounds in total
constexpr Real anchor = 1e-4L;     // pull on the states that are given up, so that they stay sane

// What is chosen by trial for each subregion: the origin of x and y, the power of the error norm,
// how far below the largest error that norm saturates while terms are chosen, and the smallest
// error demanded of states close to rho_c, where the bracket ends.
struct Plan {
    Real p0, T0, power, saturation, side_error;
};
constexpr Plan plan[7] = {
    {24.0L, 623.15L, 8, 0.05L, 1e-3L},    // 1
    {23.9L, 647.0L, 8, 0.027L, 3e-4L},    // 2
    {22.97L, 667.0L, 12, 0.035L, 4e-4L},  // 3
    {19.3L, 642.5L, 8, 0.05L, 1e-3L},     // 4
    {40.3L, 622.7L, 8, 0.042L, 5e-4L},    // 5
    {39.8L, 727.3L, 6, 0.22L, 1e-3L},     // 6
    {100.0L, 623.15L, 8, 1.0L, 4e-4L},    // 7
};

struct Sample {
    Real p, T, v, area, demand;
};

// Grid over a subregion, denser towards its edges; the areas of the cells make up for that.
std::vector<Sample> grid(int k) {
    const Real pi = std::acos(Real(-1)), bend = 0.8L;
    const auto place = [&](int i) {
        const Real a = (static_cast<Real>(i) + 0.5L) / grid_lines;
        return std::pair{bend * (1 - std::cos(pi * a)) / 2 + (1 - bend) * a,
                         bend * pi * std::sin(pi * a) / 2 + (1 - bend)};
    };
    std::vector<Sample> samples;
    Real total = 0;
    const auto [p_low, p_high] = pressures(k);
    for (int i = 0; i < grid_lines; ++i) {
        const auto [s, ds] = place(i);
        const Real p = p_low + s * (p_high - p_low);
        const auto [T_low, T_high] = temperatures(k, p);
        for (int j = 0; j < grid_lines; ++j) {
            const auto [t, dt] = place(j);
            const Real T = T_low + t * (T_high - T_low);
            const Real rho = density(p, T, k != 4);
            const Real side = k == 1 || k == 4 ? tolerance : std::fabs(rho / rho_c - 1);
            const Real demand = std::min(tolerance, std::max(side, plan[k - 1].side_error));
            samples.push_back({p, T, 1 / rho, ds * dt * (T_high - T_low), demand});
            total += samples.back().area;
        }
    }
    for (Sample& s : samples) s.area *= static_cast<Real>(samples.size()) / total;
    return samples;
}

Real rounded(Real value, const char* format) {
    char text[40];
    std::snprintf(text, sizeof text, format, static_cast<double>(value));
    return static_cast<Real>(std::strtod(text, nullptr));
}

tables::StartScale scale_of(const std::vector<Sample>& samples, const Plan& plan_k) {
    Real p_reach = 0, T_reach = 0;
    for (const Sample& s : samples) {
        p_reach = std::max(p_reach, std::fabs(s.p - plan_k.p0));
        T_reach = std::max(T_reach, std::fabs(s.T - plan_k.T0));
    }
    return {static_cast<double>(plan_k.p0), static_cast<double>(rounded(1 / p_reach, "%.5e")),
            static_cast<double>(plan_k.T0), static_cast<double>(rounded(1 / T_reach, "%.5e"))};
}

struct Fit {
    std::vector<vaprix::Term> terms;
    tables::StartScale scale;
};

constexpr std::size_t candidates = (max_exponent + 1) * (max_exponent + 1);

// x^I y^J / v of all candidates: the relative error of a fit is the sum of them minus one.
Matrix design(const std::vector<Sample>& samples, const tables::StartScale& scale) {
    Matrix D(candidates + 1, Column(samples.size(), 1));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const Real x = (samples[i].p - Real(scale.p0)) * Real(scale.p_factor);
        const Real y = (samples[i].T - Real(scale.T0)) * Real(scale.T_factor);
        for (std::size_t j = 0; j < candidates; ++j) {
            D[j][i] = std::pow(x, static_cast<Real>(j / (max_exponent + 1))) *
                      std::pow(y, static_cast<Real>(j % (max_exponent + 1))) / samples[i].v;
        }
    }
    return D;
}

// Scales the columns to equal norm and returns the factors.
Column equalize(Matrix& D) {
    Column factor(candidates);
    for (std::size_t j = 0; j < candidates; ++j) {
        const Real square = std::inner_product(D[j].begin(), D[j].end(), D[j].begin(), Real(0));
        factor[j] = std::sqrt(static_cast<Real>(D[j].size()) / square);
        for (Real& d : D[j]) d *= factor[j];
    }
    return factor;
}

// Iteratively reweighted least squares. An error of u demands costs about u^power below the
// saturation and hardly more than a constant above it: in the end the area of errors above the
// demand counts.
Fit fit(int k) {
    const Plan& how = plan[k - 1];
    const std::vector<Sample> samples = grid(k);
    const tables::StartScale scale = scale_of(samples, how);
    Matrix D = design(samples, scale);
    const Column factor = equalize(D);
    Order order(candidates);
    std::iota(order.begin(), order.end(), std::size_t{0});
    Column weight(samples.size()), error(samples.size()), n(terms);
    Real saturation = 0, largest = 0, best_share = 0, best_worst = 0;
    Fit best{{}, scale};
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const Real u = std::fabs(error[i]) / samples[i].demand / saturation;
            const Real loss = 1 + std::pow(u, how.power);
            weight[i] = samples[i].area;
            if (round > 0) weight[i] *= std::pow(u, how.power - 2) / (loss * loss) + anchor;
        }
        const bool select = round < selections;
        Matrix A;
        for (std::size_t j = 0; j < (select ? candidates : terms); ++j)
            A.push_back(D[select ? j : order[j]]);
        A.push_back(D.back());
        for (Column& a : A) {
            for (std::size_t i = 0; i < a.size(); ++i) a[i] *= std::sqrt(weight[i]);
        }
        triangularize(A, A.size() - 1);
        bool changed = round == 0;
        if (select) {
            for (Column& a : A) a.resize(candidates + 1);
            if (round == 0) eliminate(A, order, terms);
            changed = exchange(A, order, terms) || changed;
            A = reordered(A, order, terms);
        }
        const Column full = solution(A, terms);
        const Real damping = changed ? 1 : std::max(0.25L, 1 / (how.power - 1));
        for (std::size_t j = 0; j < terms; ++j)
            n[j] = changed ? full[j] : n[j] + damping * (full[j] - n[j]);

        largest = 0;
        Real inside = 0, worst = 0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            error[i] = -1;
            for (std::size_t j = 0; j < terms; ++j) error[i] += n[j] * D[order[j]][i];
            largest = std::max(largest, std::fabs(error[i]) / samples[i].demand);
            worst = std::max(worst, std::fabs(error[i]));
            if (std::fabs(error[i]) < tolerance) inside += samples[i].area;
        }
        saturation = std::max(
            Real(1), select ? largest * how.saturation : std::min(saturation * 0.8L, largest));
        if (inside > best_share || (inside == best_share && worst < best_worst)) {
            best_share = inside;
            best_worst = worst;
            best.terms.clear();
            for (std::size_t j = 0; j < terms; ++j) {
                const int e = static_cast<int>(order[j]);
                best.terms.push_back({e / (max_exponent + 1), e % (max_exponent + 1),
                                      static_cast<double>(n[j] * factor[order[j]])});
            }
        }
    }
    std::sort(best.terms.begin(), best.terms.end(),
              [](const auto& a, const auto& b) { return a.I != b.I ? a.I < b.I : a.J < b.J; });
    return best;
}

void print_header() {
    std::printf(
        "// SPDX-License-Identifier: MIT\n// Generated by tools/start_fits, do not edit.\n//\n"
        "// Start of the density iteration in region 3: v = sum n x^I y^J in m3/kg, one fit for "
        "each start\n"
        "// subregion k = 1..7, with x = (p - p0) p_factor, y = (T - T0) T_factor of start_scale[k "
        "- 1], p in\n"
        "// MPa and T in K. Fitted to the region 3 equation, IAPWS R7-97(2012) Eq. (28); 1/v is "
        "within 0.1 %%\n"
        "// of its density in 99.9 %% of the region; it is not close to the critical "
        "point.\n#pragma once\n\n"
        "#include \"frame/polynomial.hpp\"\n\nnamespace vaprix::tables {\n\n"
        "struct StartScale {\n    double p0, p_factor, T0, T_factor;\n};\n");
    std::vector<tables::StartScale> scales;
    for (int k = 1; k <= 7; ++k) {
        const Fit f = fit(k);
        scales.push_back(f.scale);
        std::printf("\ninline constexpr Term start_volume_%d[] = {\n", k);
        for (const auto& t : f.terms) std::printf("    {%d, %d, %.14e},\n", t.I, t.J, t.n);
        std::printf("};\n");
    }
    std::printf("\ninline constexpr StartScale start_scale[7] = {\n");
    for (const auto& s : scales)
        std::printf("    {%.9g, %.9g, %.9g, %.9g},\n", s.p0, s.p_factor, s.T0, s.T_factor);
    std::printf("};\n\n}  // namespace vaprix::tables\n");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--share") == 0) {
        print_share();
    } else {
        print_header();
    }
}
