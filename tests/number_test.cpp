// SPDX-License-Identifier: MIT
// The state and the equations for another number: in quadruple precision they judge themselves in
// doubles. A sum in the wrong order, a constant or a variable of less precision than the number
// shows here.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "reference/elementary.hpp"
#include "reference/sampling.hpp"

#include "regions/b23.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region3_volume.hpp"
#include "regions/region5_backward.hpp"
#include "state/derived.hpp"
#include "transport/readings.hpp"

// Every member serves any number.
template struct vaprix::Region1<reference::Quad>;
template struct vaprix::Region2<reference::Quad>;
template struct vaprix::Region3<reference::Quad>;
template struct vaprix::Region5<reference::Quad>;
template reference::Quad vaprix::psat(reference::Quad) noexcept;
template reference::Quad vaprix::tsat(reference::Quad) noexcept;
template reference::Quad vaprix::t_b23(reference::Quad) noexcept;

namespace {

using namespace vaprix;
using reference::Quad;
using reference::Random;

StateOf<Quad> in_quad(const State& at) {
    return {.region = at.region, .p = at.p, .t = at.t, .d = at.d, .v = at.v, .x = at.x};
}

// Energies and entropies pass through zero: they are measured against R T and R as well.
template <const auto& property>
void judge(const char* name, const State& at, double accuracy, double zero = 0) {
    const double exact = static_cast<double>(mixed<property>(in_quad(at)));
    EXPECT_NEAR(mixed<property>(at), exact, accuracy * (std::fabs(exact) + zero))
        << name << " in region " << static_cast<int>(at.region) << " at " << at.p << " MPa, "
        << at.t << " K, " << at.d << " kg/m3";
}

void judge_all(const State& at) {
    const double energy = R * at.t;
    judge<property::h>("h", at, 5e-13, energy);
    judge<property::s>("s", at, 5e-13, R);
    judge<property::u>("u", at, 5e-13, energy);
    judge<property::f>("f", at, 5e-13, energy);
    judge<property::g>("g", at, 5e-13, energy);
    judge<property::v>("v", at, 1e-13);
    if (at.region == Region::wet) return;
    judge<property::cv>("cv", at, 1e-11);
    judge<property::w>("w", at, 4e-12);
    judge<property::g_ideal>("g_ideal", at, 1e-13, energy);
    judge<property::fugacity>("fugacity", at, 2e-12);
    if (at.region != Region::three) judge<property::alpha_p>("alpha_p", at, 4e-12);
    if (at.d > 0) judge<property::vis>("viscosity", at, 4e-14);
    if (at.d > 0) judge<property::tcon>("conductivity", at, 4e-14);
}

TEST(Number, StatesInQuadJudgeThoseInDoubles) {
    Random random(1);
    for (int k = 0; k < 2000; ++k) {
        const double t1 = random.uniform(T_min, T_13), ps = psat(t1);
        judge_all(with_density<Asked{.density = true}>(
            gibbs_state(Region::one, random.uniform(ps, p_max), t1)));
        judge_all(gibbs_state(Region::two, random.uniform(p_min, ps), t1));
        judge_all(
            gibbs_state(Region::five, random.uniform(p_min, p_max_5), random.uniform(T_25, T_max)));
        const double t3 = random.uniform(T_13, T_23_max), d = random.uniform(120, 750);
        judge_all(dense_state(region3::p(d, t3), t3, d));
        judge_all({.region = Region::wet, .p = ps, .t = t1, .x = random.uniform(0, 1)});
    }
}

}  // namespace
