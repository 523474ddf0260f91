// SPDX-License-Identifier: MIT
//
// A call that succeeds raises no invalid, zero-divide or overflow flag, and neither does a refusal:
// hosts poll the flags after a calculation, and some trap on them. (A NaN argument may raise
// invalid: the comparison that refuses it does.)
#include <fenv.h>

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "export_table.hpp"

namespace {

using namespace host;

constexpr int watched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

// States spread over the whole range, evenly in T and in log p, with those on and beside every
// boundary: the saturation line, the boundary of regions 2 and 3, the limits, the critical point.
std::vector<State> valid_states() {
    constexpr double limits_t[] = {273.15, 623.15, 863.15, 1073.15, 2273.15};
    constexpr double limits_p[] = {0.0006112127, 22.064, 50.0, 100.0};
    std::vector<State> states(std::begin(inside), std::end(inside));
    for (const double t : limits_t) {
        for (const double p : limits_p) states.push_back({p, t});
    }
    for (const double dt : {-1.0, -1e-3, -1e-6, 0.0, 1e-6, 1e-3, 1.0}) {
        for (const double dp : {-1.0, -1e-3, -1e-6, 0.0, 1e-6, 1e-3, 1.0}) {
            states.push_back({22.064 + dp, 647.096 + dt});
        }
    }
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> t_of(273.15, 1200.0), log_p_of(std::log(6.2e-4), 4.605);
    for (int i = 0; i < 2000; ++i) {
        const double t = t_of(random);
        states.push_back({std::exp(log_p_of(random)), t});
        states.push_back({16.0 + t / 60.0, 600.0 + t / 5.0});  // dense fluid, around region 3
        const double boundary = t <= 623.15 ? PBT(&t) : FB23(&t);
        for (const double factor : {1.0 - 1e-9, 1.0, 1.0 + 1e-9}) {
            states.push_back({boundary * factor, t});
        }
    }
    std::erase_if(states, [](const State& s) { return REGIONPT(&s.p, &s.t) == 0.0; });
    return states;
}

using Arguments = std::initializer_list<double>;

// Hands each call with its name and arguments to `visit`: the functions of (p, T) at a state, the
// region-native functions at the same state, those of the saturation line along it.
template <class Visit>
void each_pt_export(const State& s, const Visit& visit) {
    const double *p = &s.p, *t = &s.t;
    for (const auto& row : b_family) visit(row.name, {*p, *t}, [&] { row.call(p, t); });
    for (const auto& row : o_family) visit(row.name, {*p, *t}, [&] { row.call(p, t); });
    for (const auto& row : region_of_pt) visit(row.name, {*p, *t}, [&] { row.call(p, t); });
    for (const auto& row : physical_o) visit(row.name, {*p, *t}, [&] { row.call(p, t); });
    visit("FUGOPT", {*p, *t}, [&] { FUGOPT(p, t); });
    const double l = 0.5;
    for (const auto& row : refractive_pt) visit(row.name, {*p, *t}, [&] { row.call(p, t, &l); });
    for (const auto& row : density_of_tp) visit(row.name, {*t, *p}, [&] { row.call(t, p); });
    for (const auto& row : solved) {  // in either order: densities of 0, enthalpies without end
        visit(row.name, {*p, *t}, [&] { row.call(p, t); });
        visit(row.name, {*t, *p}, [&] { row.call(t, p); });
    }
    for (const double d : {1000.0, 300.0, 1.0, 1e-3, *p}) {  // wet steam among them
        for (const auto& row : of_td) visit(row.name, {*t, d}, [&] { row.call(t, &d); });
        visit("FUGOTD", {*t, d}, [&] { FUGOTD(t, &d); });
        for (const auto& row : region_of_tv) visit(row.name, {*t, d}, [&] { row.call(t, &d); });
    }
    for (const auto& row : region_given) {
        int region = 0;
        visit(row.name, {*p, *t}, [&] { row.call(p, t, &region); });
    }
}

template <class Visit>
void each_hs_export(double h, double s, const Visit& visit) {
    const auto visit_rows = [&](const auto& rows) {
        for (const auto& row : rows) visit(row.name, {h, s}, [&] { row.call(&h, &s); });
    };
    visit_rows(hs_b), visit_rows(hs_o), visit_rows(region_of_hs);
}

template <class Visit>
void each_native_export(const State& s, const Visit& visit) {
    const int region = static_cast<int>(REGIONPT(&s.p, &s.t));
    if (region == 4) return;
    const double v = VBPT(&s.p, &s.t), h = HBPT(&s.p, &s.t), entropy = SBPT(&s.p, &s.t);
    const double* const arguments[][2] = {
        {&s.p, &s.t}, {&s.t, &s.p}, {&v, &s.t}, {&s.p, &h}, {&s.p, &entropy}};
    for (const auto& row : natives) {
        if (row.region != region) continue;
        const auto& [x, y] = arguments[static_cast<int>(row.pair)];
        visit(row.name, {*x, *y}, [&, x = x, y = y] { row.call(x, y); });
    }
    const double d = 1.0 / v, l = 0.5;
    for (const auto& row : physical_td) visit(row.name, {s.t, d}, [&] { row.call(&s.t, &d); });
    for (const auto& row : refractive_td)
        visit(row.name, {s.t, d}, [&] { row.call(&s.t, &d, &l); });
    int given = 0;
    double out = 0;
    visit("VISCVT", {s.p, v, s.t}, [&] { VISCVT(&s.p, &v, &s.t, &given, &out); });
    visit("DVISCDT", {v, s.t}, [&] { DVISCDT(&v, &s.t, &out); });
    visit("DVISCDV", {v, s.t}, [&] { DVISCDV(&v, &s.t, &out); });
    const auto visit_inverse = [&](const auto& rows) {
        for (const auto& row : rows) {
            const double* y = row.pair == Pair::ph ? &h : &entropy;
            visit(row.name, {s.p, *y}, [&] { row.call(&s.p, y); });
        }
    };
    visit_inverse(inverse_b);
    visit_inverse(inverse_o);
    visit_inverse(inverse_region);
    const double of[] = {s.p, s.t, v, d, h, entropy};
    for (const auto& row : solved) {
        const double x = of[static_cast<int>(row.first)], y = of[static_cast<int>(row.second)];
        visit(row.name, {x, y}, [&] { row.call(&x, &y); });
    }
    for (const auto& row : of_td) visit(row.name, {s.t, d}, [&] { row.call(&s.t, &d); });
    for (const auto& row : region_of_tv) visit(row.name, {s.t, v}, [&] { row.call(&s.t, &v); });
    each_hs_export(h, entropy, visit);
    if (region != 3) return;
    const double start = 1.0 / v, tolerance = 1e-6;
    visit("DITER3", {s.p, s.t, start, tolerance}, [&] { DITER3(&s.p, &s.t, &start, &tolerance); });
}

template <class Visit>
void each_line_export(const Visit& visit) {
    for (const auto& row : unchecked) {
        for (int i = 0; i <= 1000; ++i) {
            const double t = row.lowest + (row.highest - row.lowest) * i / 1000.0;
            visit(row.name, {t}, [&] { row.call(&t); });
        }
    }
    for (const auto& row : wet_steam) {
        const double low = row.highest == t_top ? row.lowest : 0.00061122;
        for (int i = 0; i <= 1000; ++i) {
            const double first = low + (row.highest - low) * i / 1000.0, x = i % 11 / 10.0;
            visit(row.name, {first, x}, [&] { row.call(&first, &x); });
        }
    }
    for (const auto& row : refractive_saturated) {
        for (const double t : {273.15, 500.0, 647.096}) {
            for (const double l : {0.0, 0.5}) visit(row.name, {t, l}, [&] { row.call(&t, &l); });
        }
    }
    const auto visit_range = [&](const auto& rows) {
        for (const auto& row : rows) {
            // vapour of no pressure at all has a volume beyond the range of doubles
            const double low = row.lowest == above_zero ? 0.00061122 : row.lowest;
            for (int i = 0; i <= 1000; ++i) {
                const double x = low + (row.highest - low) * i / 1000.0;
                visit(row.name, {x}, [&] { row.call(&x); });
            }
            for (const double x : bad_values) {
                if (std::isnan(x) || x == above_zero) continue;
                visit(row.name, {x}, [&] { row.call(&x); });
            }
        }
    };
    visit_range(saturation_line), visit_range(saturated_by);
}

constexpr auto expect_no_flag = [](const char* name, Arguments arguments, const auto& call) {
    feclearexcept(FE_ALL_EXCEPT);
    call();
    const int raised = fetestexcept(watched);
    EXPECT_EQ(raised, 0) << name << testing::PrintToString(arguments) << " raises"
                         << (raised & FE_INVALID ? " invalid" : "")
                         << (raised & FE_DIVBYZERO ? " zero-divide" : "")
                         << (raised & FE_OVERFLOW ? " overflow" : "");
};

TEST(FloatingPointFlags, ValidStatesRaiseNone) {
    for (const State& s : valid_states()) {
        each_pt_export(s, expect_no_flag);
        each_native_export(s, expect_no_flag);
    }
}

TEST(FloatingPointFlags, RefusedStatesRaiseNone) {
    for (const double p : bad_values) {
        for (const double t : bad_values) {
            if (std::isnan(p) || std::isnan(t)) continue;
            for (const State& s : {State{p, t}, State{p, 300.0}, State{3.0, t}}) {
                each_pt_export(s, expect_no_flag);
            }
            each_hs_export(p, t, expect_no_flag);
        }
    }
}

// Wet steam, and pairs of no state among those of some.
TEST(FloatingPointFlags, AnyEnthalpyAndEntropyRaisesNone) {
    std::mt19937_64 random(21);
    std::uniform_real_distribution<double> h_of(-0.1, 7400), s_of(-0.01, 14), h_low(-0.1, 3000),
        s_low(-0.01, 9.2);
    for (int i = 0; i < 20000; ++i) {
        each_hs_export(h_of(random), s_of(random), expect_no_flag);
        each_hs_export(h_low(random), s_low(random), expect_no_flag);
    }
}

TEST(FloatingPointFlags, LinesRaiseNone) { each_line_export(expect_no_flag); }

// The same calls under traps, which also catch a flag that is raised and cleared again.
TEST(FloatingPointFlagsDeathTest, HostThatTraps) {
    const std::vector<State> states = valid_states();
    const auto just_call = [](const char*, Arguments, const auto& call) { call(); };
    EXPECT_EXIT(
        {
            feclearexcept(FE_ALL_EXCEPT);
            feenableexcept(watched);
            for (const State& s : states) {
                each_pt_export(s, just_call);
                each_native_export(s, just_call);
            }
            each_line_export(just_call);
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
