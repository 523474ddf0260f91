// SPDX-License-Identifier: MIT
//
// A once-through steam generator: tubes in parallel between two headers, each of 100 cells in which water is heated by
// flue gas and loses pressure by friction. Given are the water at the inlet and the total flow; found are the flow of
// each tube, which depends on how much it is heated, and p and h of each cell, by Newton's method with the derivatives of
// State.
//   steam_generator [TUBES]   (default 1000: 100,000 cells)
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <vaprix.hpp>

namespace {

constexpr int cells = 100;
constexpr double p_in = 19;           // MPa
constexpr double h_in = 1200;         // kJ/kg
constexpr double flow = 0.5;          // kg/s, mean of the tubes
constexpr double conductance = 0.02;  // of a cell, kW/K
constexpr double friction = 4;        // of a cell, MPa per (kg/s)^2 m3/kg

// Temperature of the gas, K: it cools along the tube, and some tubes lie in its core.
double gas(int tube, int cell, int tubes) {
    return 1150 - 2.0 * cell + 60 * std::cos(6.28 * tube / tubes);
}

struct Cell {
    double h, p;
    double step_h, step_p;  // of a Newton step at constant flow
    double by_flow_h, by_flow_p;
};

struct Tube {
    double flow = ::flow;
    std::vector<Cell> cells;
};

// Steps of all cells of a tube by elimination along the flow; the greatest residual, relative.
double eliminate(Tube& tube, int number, int tubes) {
    using namespace vaprix;
    const double m = tube.flow;
    double worst = 0;
    Cell before{h_in, p_in, 0, 0, 0, 0};
    for (int i = 0; i < cells; ++i) {
        Cell& at = tube.cells[static_cast<std::size_t>(i)];
        const State water = of_ph(at.p, at.h);
        const Slopes slopes = water.slopes();
        // energy and momentum, and their derivatives by h, p and the flow
        const double energy =
            m * (at.h - before.h) - conductance * (gas(number, i, tubes) - water.T());
        const double momentum = at.p - before.p + friction * m * m * water.v();
        const double energy_h = m + conductance * slopes.derivative<T, h, p>();
        const double energy_p = conductance * slopes.derivative<T, p, h>();
        const double momentum_h = friction * m * m * slopes.derivative<v, h, p>();
        const double momentum_p = 1 + friction * m * m * slopes.derivative<v, p, h>();
        const double determinant = energy_h * momentum_p - energy_p * momentum_h;
        const auto solve = [&](double a, double b, double& in_h, double& in_p) {
            in_h = (a * momentum_p - b * energy_p) / determinant;
            in_p = (b * energy_h - a * momentum_h) / determinant;
        };
        solve(m * before.step_h - energy, before.step_p - momentum, at.step_h, at.step_p);
        solve(m * before.by_flow_h - (at.h - before.h),
              before.by_flow_p - 2 * friction * m * water.v(), at.by_flow_h, at.by_flow_p);
        worst = std::max({worst, std::fabs(energy / (m * h_in)), std::fabs(momentum / p_in)});
        before = at;
    }
    return worst;
}

}  // namespace

int main(int argc, char** argv) {
    const int tubes = argc > 1 ? std::atoi(argv[1]) : 1000;
    std::vector<Tube> bank(static_cast<std::size_t>(std::max(tubes, 1)));
    for (Tube& tube : bank) {
        for (int i = 0; i < cells; ++i)
            tube.cells.push_back({h_in + 18 * i, p_in - 0.01 * i, 0, 0, 0, 0});
    }
    double p_out = bank[0].cells.back().p;
    const auto start = std::chrono::steady_clock::now();
    double residual = 1;
    int iterations = 0;
    for (; iterations < 30 && !(residual < 1e-12); ++iterations) {
        residual = 0;
        double needed = flow * static_cast<double>(bank.size());  // by the flows to the total
        double by_p_out = 0;
        for (std::size_t k = 0; k < bank.size(); ++k) {
            Tube& tube = bank[k];
            residual = std::max(residual, eliminate(tube, static_cast<int>(k), tubes));
            const Cell& last = tube.cells.back();
            needed -= tube.flow - (last.p - p_out + last.step_p) / last.by_flow_p;
            by_p_out += 1 / last.by_flow_p;
        }
        const double step_p_out = needed / by_p_out;
        p_out += step_p_out;
        residual = std::max(residual, std::fabs(step_p_out) / p_in);
        for (Tube& tube : bank) {
            const Cell& last = tube.cells.back();
            const double step_flow = (p_out - last.p - last.step_p) / last.by_flow_p;
            tube.flow += step_flow;
            for (Cell& cell : tube.cells) {
                cell.h += cell.step_h + cell.by_flow_h * step_flow;
                cell.p += cell.step_p + cell.by_flow_p * step_flow;
            }
        }
        std::printf("iteration %2d  residual %.1e\n", iterations + 1, residual);
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const auto [least, most] = std::minmax_element(
        bank.begin(), bank.end(), [](const Tube& a, const Tube& b) { return a.flow < b.flow; });
    const auto temperature = [](const Tube& tube) {
        return vaprix::of_ph(tube.cells.back().p, tube.cells.back().h).T();
    };
    std::printf("%d cells, %d iterations, residual %.1e, %.0f ns a cell and iteration\n",
                tubes * cells, iterations, residual,
                time.count() * 1e9 / (tubes * cells) / iterations);
    std::printf("outlet %.4f MPa, %.4f kg/s at %.2f K to %.4f kg/s at %.2f K\n", p_out, least->flow,
                temperature(*least), most->flow, temperature(*most));
    return residual < 1e-12 ? 0 : 1;
}
