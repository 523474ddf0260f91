// SPDX-License-Identifier: MIT
// The library's equations evaluated in quadruple precision judge the same equations evaluated in
// doubles: what is left is the rounding of the arithmetic, which docs/accuracy.md states. A sum in
// the wrong order, a constant or a variable of less precision than the number shows here.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "reference/elementary.hpp"
#include "reference/sampling.hpp"

#include "regions/b23.hpp"
#include "regions/boundaries_hs.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region3_volume.hpp"
#include "regions/region5_backward.hpp"
#include "regions/saturated_densities.hpp"
#include "regions/saturated_energies.hpp"
#include "transport/conductivity.hpp"
#include "transport/dielectric.hpp"
#include "transport/refractive_index.hpp"
#include "transport/surface_tension.hpp"
#include "transport/viscosity.hpp"

// Every member serves any number.
template struct vaprix::Region1<reference::Quad>;
template struct vaprix::Region2<reference::Quad>;
template struct vaprix::Region3<reference::Quad>;
template struct vaprix::Region5<reference::Quad>;

namespace {

using namespace vaprix;
using reference::Deviations;
using reference::Quad;
using reference::Random;

// What a deviation is measured against, given the value: energies and entropies pass through zero.
Quad size(Quad value, Quad) { return reference::magnitude(value); }
Quad energy(Quad value, Quad t) { return reference::magnitude(value) + R * t; }
Quad entropy(Quad value, Quad) { return reference::magnitude(value) + R; }

// A function of two variables in doubles and in quadruple precision.
struct Row {
    const char* name;
    double (*rounded)(double, double);
    Quad (*exact)(Quad, Quad);
    Quad (*scale)(Quad value, Quad t);
    double accuracy;
};

// A sweep of another sample than that of the documented figure may find a state twice as bad.
constexpr double sampling = 2;

// The functions of (x, t) over random states.
template <class Sample>
void judge(std::uint64_t seed, Sample sample, const std::vector<Row>& rows) {
    Random random(seed);
    Deviations deviations;
    for (int k = 0; k < reference::states() / 5; ++k) {
        const auto [x, t] = sample(random);
        for (const Row& row : rows) {
            const Quad exact = row.exact(x, t);
            deviations.check(row.name, row.rounded(x, t), exact, row.scale(exact, t),
                             sampling * row.accuracy, {x, t});
        }
    }
}

struct State {
    double x, t;
};

State liquid(Random& random) {
    const double t = random.uniform(T_min, T_13);
    return {random.uniform(psat(t), p_max), t};
}
State vapour(Random& random) {
    const double t = random.uniform(T_min, T_25);
    const double top = t < T_13 ? psat(t) : std::min(p_b23(t), p_max);
    return {random.uniform(p_min, std::max(top, p_min)), t};
}
State hot(Random& random) { return {random.uniform(p_min, p_max_5), random.uniform(T_25, T_max)}; }
State dense(Random& random) { return {random.uniform(120, 750), random.uniform(T_13, T_23_max)}; }

// Accuracy of v, h, u, s, g, cp, cv, w as documented.
template <template <class> class Region>
std::vector<Row> properties(const double (&accuracy)[8]) {
    using In = Region<double>;
    using Exact = Region<Quad>;
    return {
        {"v", In::v, Exact::v, size, accuracy[0]},    {"h", In::h, Exact::h, energy, accuracy[1]},
        {"u", In::u, Exact::u, energy, accuracy[2]},  {"s", In::s, Exact::s, entropy, accuracy[3]},
        {"g", In::g, Exact::g, energy, accuracy[4]},  {"cp", In::cp, Exact::cp, size, accuracy[5]},
        {"cv", In::cv, Exact::cv, size, accuracy[6]}, {"w", In::w, Exact::w, size, accuracy[7]}};
}

TEST(Number, Region1) {
    judge(1, liquid,
          properties<Region1>(
              {2.2e-14, 1.1e-14, 1.2e-14, 6.0e-15, 4.3e-15, 1.2e-13, 3.0e-12, 1.8e-12}));
}

TEST(Number, Region2) {
    judge(2, vapour,
          properties<Region2>(
              {9.2e-16, 1.6e-14, 5.8e-16, 6.6e-16, 5.0e-15, 4.9e-15, 1.7e-14, 9.1e-15}));
}

TEST(Number, Region5) {
    judge(5, hot,
          properties<Region5>(
              {4.5e-16, 3.5e-16, 4.4e-16, 4.5e-16, 5.2e-16, 4.9e-16, 6.7e-16, 4.2e-16}));
}

TEST(Number, Region3) {
    using In = region3;
    using Exact = Region3<Quad>;
    judge(
        3, dense,
        {{"p", In::p, Exact::p, [](Quad p, Quad) { return reference::magnitude(p) + 1; }, 1.0e-12},
         {"h", In::h, Exact::h, energy, 2.4e-13},
         {"u", In::u, Exact::u, energy, 1.8e-13},
         {"s", In::s, Exact::s, entropy, 1.7e-13},
         {"g", In::g, Exact::g, energy, 1.1e-13},
         {"f", In::f, Exact::f, energy, 1.5e-14},
         {"cv", In::cv, Exact::cv, size, 4.8e-12}});
}

// The saturation line at a temperature and at the pressure there.
TEST(Number, SaturationLine) {
    judge(4,
          [](Random& random) {
              const double t = random.uniform(T_min, T_crit);
              return State{psat(t), t};
          },
          {{"psat", [](double, double t) { return psat(t); }, [](Quad, Quad t) { return psat(t); },
            size, 1.3e-14},
           {"tsat", [](double p, double) { return tsat(p); }, [](Quad p, Quad) { return tsat(p); },
            size, 1.3e-14}});
}

TEST(Number, BackwardEquations) {
    judge(6,
          [](Random& random) {
              const auto [p, t] = liquid(random);
              return State{p, region1::h(p, t)};
          },
          {{"region 1 t_ph", region1::t_ph, Region1<Quad>::t_ph, size, 1e-13}});
    judge(7,
          [](Random& random) {
              const auto [p, t] = vapour(random);
              return State{p, region2::h(p, t)};
          },
          {{"region 2 t_ph", region2::t_ph, Region2<Quad>::t_ph, size, 1e-13}});
}

TEST(Number, Transport) {
    judge(8, dense,
          {{"viscosity", [](double d, double t) { return transport::viscosity(t, d); },
            [](Quad d, Quad t) { return transport::viscosity(t, d); }, size, 1.5e-14},
           {"conductivity", [](double d, double t) { return transport::conductivity(t, d); },
            [](Quad d, Quad t) { return transport::conductivity(t, d); }, size, 2e-14},
           {"dielectric constant",
            [](double d, double t) { return transport::dielectric_constant(t, d); },
            [](Quad d, Quad t) { return transport::dielectric_constant(t, d); }, size, 9e-14}});
}

}  // namespace
