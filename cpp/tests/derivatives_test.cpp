// SPDX-License-Identifier: MIT
// Every first derivative (dz/dx)_y and the second ones: in quadruple precision against differences of the published
// equations, in doubles against themselves in quadruple precision, and by the relations of Maxwell.
#include <gtest/gtest.h>

#include <string>

#include "reference/basic_equations.hpp"
#include "reference/elementary.hpp"
#include "reference/sampling.hpp"

#include "derivatives.hpp"
#include "state/wet.hpp"

namespace {

using namespace vaprix;
using bridge::properties;
using derivatives::kJ, derivatives::Rows;
using reference::magnitude;
using reference::Quad;
using Published = reference::State;

// p, T, v, d, h, s, u, f, g by their numbers
constexpr const char* letters = "pTvdhsufg";
[[maybe_unused]] constexpr std::size_t p = 0, T = 1, v = 2, d = 3, h = 4, s = 5, u = 6, f = 7,
                                       g = 8;
using Values = std::array<Quad, properties>;

Values values(const Published& x) {
    return {x.p(), x.t, x.v(), x.d(), x.h(), x.s(), x.u(), x.f(), x.g()};
}

// A state of one equation, at p and T whatever its own variables.
Published published_at(const StateOf<Quad>& near, Quad of_p, Quad of_t) {
    const bool dense = near.region == Region::three;
    return {static_cast<int>(near.region),
            dense ? reference::polished_density3(of_p, of_t, near.d) : of_p, of_t};
}

// Wet steam of p and x on the published saturation line.
Values published_mixture(const StateOf<Quad>& near, Quad of_p, Quad of_x) {
    const Quad t = published::tsat(of_p);
    const bool dense = near.t > T_13;
    const auto [vapour, liquid] =
        dense ? reference::coexistence3(t, near.ends.vapour, near.ends.liquid)
              : reference::Coexistence{of_p, of_p};
    const Values from = values({dense ? 3 : 1, liquid, t}), to = values({dense ? 3 : 2, vapour, t});
    Values mixed;
    for (std::size_t k = 0; k < properties; ++k) mixed[k] = from[k] + of_x * (to[k] - from[k]);
    mixed[p] = of_p;
    mixed[d] = 1 / mixed[v];
    return mixed;
}

// Condition of the second derivatives beyond which, beside the critical point, differences do not resolve them.
constexpr double singular = 1e5;

// Slopes of a list of values by two coordinates, by central differences.
template <class Of>
auto differences(Of of, Quad a, Quad b) {
    constexpr double step = 1e-12;
    const auto high_a = of(a + step * a, b), low_a = of(a - step * a, b);
    const auto high_b = of(a, b + step), low_b = of(a, b - step);
    std::array<std::array<Quad, 2>, std::tuple_size_v<decltype(of(a, b))>> slopes;
    for (std::size_t k = 0; k < slopes.size(); ++k) {
        slopes[k] = {(high_a[k] - low_a[k]) / (2 * step * a),
                     (high_b[k] - low_b[k]) / (2 * Quad(step))};
    }
    return slopes;
}

// {a, b} of slopes; with the sign 1 the size of what it is the difference of.
template <class Slopes>
Quad jacobian(const Slopes& of, std::size_t a, std::size_t b, double sign = -1) {
    return Quad(of[a][0]) * of[b][1] + sign * (Quad(of[a][1]) * of[b][0]);
}

// What the slopes of energies cancel from: in vapour that of u by p, from k v; a difference of the phases, from R T.
template <class Slopes>
auto sizes_of(Slopes slopes, bool is_wet, Quad pad) {
    std::array<std::array<Quad, 2>, properties> sizes;
    for (std::size_t k = 0; k < properties; ++k) {
        sizes[k] = {magnitude(slopes[k][0]), magnitude(slopes[k][1])};
        if (k == u || (is_wet && k >= u)) sizes[k][1] += pad;
    }
    return sizes;
}

class Derivatives : public testing::Test {
protected:
    reference::Deviations worst;
    std::string stratum, where;

    void check(const std::string& what, Quad got, Quad want, Quad scale, const std::string& of) {
        constexpr double tolerance = 1e-9;
        worst.check(what + ", " + stratum, static_cast<double>(got), want, scale, tolerance,
                    [&] { return where + " " + of; });
    }

    // (dz/dx)_y of all z, x and y by two lists of slopes; `sizes` are those of what the expected ones are made of.
    template <class Got, class Expected>
    void check_all(const std::string& what, const Got& got, const Expected& expected,
                   const Expected& sizes) {
        for (std::size_t x = 0; x < properties; ++x) {
            for (std::size_t y = 0; y < properties; ++y) {
                const Quad by = jacobian(expected, x, y), size_x = jacobian(sizes, x, y, 1);
                constexpr double undefined = 1e-10;
                if (magnitude(by) <= undefined * size_x) continue;
                for (std::size_t z = 0; z < properties; ++z) {
                    const Quad want = jacobian(expected, z, y) / by,
                               size_z = jacobian(sizes, z, y, 1);
                    const Quad scale = (size_z + magnitude(want) * size_x) / magnitude(by);
                    if (scale == 0) continue;  // of a property by itself at constant itself
                    check(what, jacobian(got, z, y) / jacobian(got, x, y), want, scale,
                          {letters[z], letters[x], letters[y]});
                }
            }
        }
    }

    // (dT/dp)_s = (dv/ds)_p, (dT/dv)_s = -(dp/ds)_v, (ds/dv)_T = (dp/dT)_v, (ds/dp)_T = -(dv/dT)_p: {T, s} = {p, v}
    template <class Got>
    void check_maxwell(const Got& got) {
        check("Maxwell", jacobian(got, T, s), kJ * jacobian(got, p, v),
              jacobian(sizes_of(got, false, 0), T, s, 1), "");
    }

    void judge(const strata::State& at);
    void judge_curvatures(const StateOf<double>& in_double, const StateOf<Quad>& state);
};

void Derivatives::judge(const strata::State& at) {
    const bool is_wet = at.region == 4;
    StateOf<double> state{.region = is_wet ? Region::wet : static_cast<Region>(at.region),
                          .p = at[bound::p],
                          .t = at[bound::T],
                          .d = at[bound::d],
                          .x = at[bound::x]};
    StateOf<Quad> quad{
        .region = state.region, .p = state.p, .t = state.t, .d = state.d, .x = state.x};
    where = reference::digits({state.p, state.t, state.d, state.x});
    if (is_wet) {
        quad.t = published::tsat(quad.p);
        if ((quad.t > T_13) != (state.t > T_13)) return;
        if (state.t > T_13) {
            state.ends = ends_at(state.p, state.t);
            const auto [vapour, liquid] =
                reference::coexistence3(quad.t, state.ends.vapour, state.ends.liquid);
            quad.ends = {vapour, liquid};
            if (reference::region3(vapour, quad.t).second_condition() > singular) return;
        }
        const auto of = [&](Quad a, Quad b) { return published_mixture(quad, a, b); };
        const auto expected = differences(of, quad.p, quad.x);
        const auto sizes = sizes_of(expected, true, R * quad.t);
        check_all("in quad", derivatives::mixed(quad), expected, sizes);
        check_all("in double", derivatives::mixed(state), expected, sizes);
        return;
    }
    const Published published = published_at(quad, quad.p, quad.t);
    quad.d = published.d();
    if (!(quad.d > 0) || !(published.second_condition() < singular)) return;
    const auto of = [&](Quad a, Quad b) { return values(published_at(quad, a, b)); };
    const auto expected = differences(of, quad.p, quad.t);
    const auto sizes = sizes_of(expected, false, kJ / quad.d);
    check_all("in quad", derivatives::single(quad).slopes, expected, sizes);
    check_all("in double", derivatives::single(state).slopes, expected, sizes);
    check_maxwell(derivatives::single(state).slopes);
    judge_curvatures(state, quad);
}

// By (p, y): (d/dy)_p = (d/dT)_p/y_T and (d/dp)_y = (d/dp)_T - y_p (d/dy)_p of the first derivatives.
void Derivatives::judge_curvatures(const StateOf<double>& in_double, const StateOf<Quad>& state) {
    const auto curved = derivatives::curvatures(state);
    const auto curved_double = derivatives::curvatures(in_double);
    for (const std::size_t y : {std::size_t{0}, std::size_t{2}, std::size_t{3}}) {
        const auto first = [&](Quad a, Quad b) {
            const Published x = published_at(state, a, b);
            const Quad by_t[] = {1, x.v_t(), x.cp(), x.cp() / b};
            const Quad by_p[] = {0, x.v_p(), kJ * (x.v() - b * x.v_t()), -kJ * x.v_t()};
            std::array<Quad, 8> of;  // (dz/dp)_y and (dz/dy)_p
            for (std::size_t z = 0; z < 4; ++z) {
                of[2 * z + 1] = by_t[z] / by_t[y];
                of[2 * z] = by_p[z] - of[2 * z + 1] * by_p[y];
            }
            return of;
        };
        const auto here = first(state.p, state.t);
        const auto slopes = differences(first, state.p, state.t);
        const auto& by = curved[y];
        for (std::size_t z = 0; z < 4; ++z) {
            const auto in_y = [&](std::size_t k) { return slopes[k][1] / by.t; };
            const auto in_p = [&](std::size_t k) { return slopes[k][0] - by.p * in_y(k); };
            const Quad z_p = magnitude(here[2 * z]), z_y = magnitude(here[2 * z + 1]);
            const auto check_each = [&](const std::string& what, const auto& got) {
                const std::string name = {"Tvhs"[z], "Tvhs"[y]};
                check(what, got.pp, in_p(2 * z), magnitude(in_p(2 * z)) + z_p / state.p,
                      name + " pp");
                check(what, got.py, in_p(2 * z + 1), magnitude(in_p(2 * z + 1)) + z_y / state.p,
                      name + " py");
                check(what, got.yy, in_y(2 * z + 1),
                      magnitude(in_y(2 * z + 1)) + z_y / (state.t * by.t), name + " yy");
            };
            check_each("second in quad", derivatives::along(curved[z], by));
            check_each("second in double", derivatives::along(curved_double[z], curved_double[y]));
        }
    }
}

TEST_F(Derivatives, EachAgreesWithDifferences) {
    strata::sweep(0.0005, 1, [&](const strata::Stratum& of, const strata::State& at) {
        stratum = of.name;
        judge(at);
    });
}

}  // namespace
