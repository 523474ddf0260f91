// SPDX-License-Identifier: MIT
//
// What every export answers to arguments that are no state: the sentinel, the code, or whatever its
// family gives; and what a region number that means nothing does.
#include <cmath>
#include <fstream>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "export_table.hpp"

namespace host {

static void PrintTo(const State& s, std::ostream* out) {
    const auto precision = out->precision(17);
    *out << "p = " << s.p << ", T = " << s.t;
    out->precision(precision);
}

}  // namespace host

namespace {

using namespace host;

// Pairs outside the range of validity: each bad value on either side and on both, then the nearest
// neighbours of the limits.
std::vector<State> outside_states() {
    std::vector<State> states;
    for (const double bad : bad_values) {
        for (const State& good : inside) {
            states.push_back({bad, good.t});
            states.push_back({good.p, bad});
        }
        for (const double other : bad_values) states.push_back({bad, other});
    }
    states.insert(states.end(), {
                                    {std::nextafter(0.0006112127, 0.0), 300.0},
                                    {std::nextafter(100.0, infinity), 300.0},
                                    {3.0, 273.15 - 1e-11},
                                    {3.0, std::nextafter(2273.15, infinity)},
                                    {std::nextafter(50.0, infinity), 1500.0},
                                    {100.0, 1073.15 + 1e-11},
                                });
    return states;
}

// Within the tolerance of the saturation line, in region 1 or 2 and in region 3.
std::vector<State> saturated_states() {
    std::vector<State> states;
    for (const double t : {274.0, 300.0, 373.15, 500.0, 623.15}) states.push_back({PBT(&t), t});
    for (const double p : {17.0, 19.5, 21.9}) states.push_back({p, TBP(&p)});
    return states;
}

struct Answer {
    double value;
    int code;
};

template <class Call, class... Arguments>
Answer answer(LeftCode left, Call call, Arguments... arguments) {
    leave(left);
    const double value = call(arguments...);
    return {value, ECODETUL()};
}

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

#define EXPECT_ANSWER(expected_value, expected_code, ...) \
    EXPECT_ANSWER_AFTER(of_line, expected_value, expected_code, __VA_ARGS__)
#define EXPECT_ANSWER_AFTER(left, expected_value, expected_code, ...)                       \
    do {                                                                                    \
        const Answer got = answer(left, __VA_ARGS__);                                       \
        EXPECT_PRED2(same, got.value, expected_value)                                       \
            << row.name << ' ' << testing::PrintToString(s);                                \
        EXPECT_EQ(got.code, expected_code) << row.name << ' ' << testing::PrintToString(s); \
    } while (0)

// What the physical properties answer outside and on the saturation line.
void expect_no_physical_answer(const State& s) {
    const double l = 0.5;
    const auto code = [](const auto& row) { return row.code == 0 ? of_line : row.code; };
    for (const auto& row : physical_o) {
        EXPECT_ANSWER(row.failure, code(row), row.call, &s.p, &s.t);
    }
    for (const auto& row : refractive_pt)
        EXPECT_ANSWER(failed, code(row), row.call, &s.p, &s.t, &l);
}

TEST(BadInput, FamiliesOfPtOutsideTheRange) {
    for (const State& s : outside_states()) {
        for (const auto& row : b_family) EXPECT_ANSWER(failed, of_line, row.call, &s.p, &s.t);
        for (const auto& row : o_family) EXPECT_ANSWER(failed, outside, row.call, &s.p, &s.t);
        for (const auto& row : density_of_tp) EXPECT_ANSWER(failed, outside, row.call, &s.t, &s.p);
        for (const auto& row : region_of_pt) EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &s.t);
        expect_no_physical_answer(s);
    }
}

TEST(BadInput, FamiliesOfPtOnTheSaturationLine) {
    for (const State& s : saturated_states()) {
        expect_no_physical_answer(s);
        for (const auto& row : b_family) {
            EXPECT_ANSWER(row.on_saturation_line, of_line, row.call, &s.p, &s.t);
        }
        for (const auto& row : region_of_pt) EXPECT_ANSWER(4.0, of_line, row.call, &s.p, &s.t);
        for (const auto& row : density_of_tp) EXPECT_ANSWER(failed, outside, row.call, &s.t, &s.p);
        for (const auto& row : o_family) {
            if (row.call == DOPT || row.call == VOPT) {  // either phase would do: neither does
                EXPECT_ANSWER(failed, outside, row.call, &s.p, &s.t);
                continue;
            }
            const Answer got = answer(of_line, row.call, &s.p, &s.t);  // the saturated liquid
            EXPECT_TRUE(std::isfinite(got.value) && got.value != 0.0 && got.value != failed)
                << row.name << ' ' << testing::PrintToString(s) << ": " << got.value;
            EXPECT_EQ(got.code, 0) << row.name << ' ' << testing::PrintToString(s);
        }
    }
}

// The fugacity tests temperature, then pressure or density, each with a code of its own, before the
// range. Of (p, T) it stores 0 on success, also on the saturation line.
TEST(BadInput, Fugacity) {
    const double nan = bad_values[0];
    struct {
        const char* name;
        OfTwo call;
        State s;
        int code;
    } const rows[] = {
        {"FUGOPT", FUGOPT, {3.0, 273.1}, -10001},    {"FUGOPT", FUGOPT, {nan, -infinity}, -10001},
        {"FUGOPT", FUGOPT, {0.0, 300.0}, -10002},    {"FUGOPT", FUGOPT, {-1.0, 300.0}, -10002},
        {"FUGOPT", FUGOPT, {nan, 300.0}, -10002},    {"FUGOPT", FUGOPT, {1e-4, 300.0}, outside},
        {"FUGOPT", FUGOPT, {101.0, 300.0}, outside}, {"FUGOPT", FUGOPT, {3.0, 2274.0}, outside},
        {"FUGOPT", FUGOPT, {3.0, nan}, outside},     {"FUGOPT", FUGOPT, {51.0, 1500.0}, outside},
        {"FUGOTD", FUGOTD, {273.1, 1e3}, -10001},    {"FUGOTD", FUGOTD, {-infinity, nan}, -10001},
        {"FUGOTD", FUGOTD, {300.0, 0.0}, -10002},    {"FUGOTD", FUGOTD, {300.0, -1.0}, -10002},
        {"FUGOTD", FUGOTD, {2274.0, nan}, -10002},   {"FUGOTD", FUGOTD, {2274.0, 1.0}, -10050},
        {"FUGOTD", FUGOTD, {infinity, 1.0}, -10050}, {"FUGOTD", FUGOTD, {300.0, 5.0}, own_range},
        {"FUGOTD", FUGOTD, {nan, 5.0}, own_range},   {"FUGOTD", FUGOTD, {300.0, 2e3}, own_range},
    };
    for (const auto& row : rows) {
        const State& s = row.s;
        EXPECT_ANSWER(failed, row.code, row.call, &s.p, &s.t);
    }
    std::vector<State> answered = saturated_states();
    answered.insert(answered.end(), std::begin(inside), std::end(inside));
    for (const State& s : answered) {
        const Answer got = answer(of_line, FUGOPT, &s.p, &s.t);
        EXPECT_TRUE(got.value > 0.0 && got.value < s.p) << testing::PrintToString(s);
        EXPECT_EQ(got.code, 0) << testing::PrintToString(s);
    }
}

TEST(BadInput, RegionGivenFunctions) {
    constexpr int meaningless[] = {-1, 4, 6, 7, 8, 9, 2147483647, -2147483647 - 1};
    for (const auto& row : region_given) {
        const auto expect_zero = [&row](const State& s, int given) {
            int region = given;
            EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &s.t, &region);
            EXPECT_EQ(region, given) << row.name << ' ' << testing::PrintToString(s);
        };
        for (const State& s : outside_states()) {
            expect_zero(s, 0);
            for (const int region : meaningless) expect_zero(s, region);
        }
        for (const State& s : inside) {
            for (const int region : meaningless) expect_zero(s, region);
        }
        for (const State& s : saturated_states()) {
            int region = 0;
            EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &s.t, &region);
            EXPECT_EQ(region, 9) << row.name << ' ' << testing::PrintToString(s);
        }
    }
}

// Pressures and enthalpies or entropies outside the range, as (p, y) in the members p and t.
std::vector<State> outside_states(Pair pair) {
    const bool of_h = pair == Pair::ph;
    const double lowest = of_h ? -0.04158782623017032 : -0.008582287092621963;
    const double highest = of_h ? 7376.98028 : 13.9049560904359;
    constexpr double p_low = 0.0006112127, p_high = 100.0;
    std::vector<State> states;
    for (const double bad : bad_values) {
        for (const double other : bad_values) {
            if (!(bad >= p_low && bad <= p_high)) states.push_back({bad, other});
        }
        for (const InverseState& good : inverse_inside) {
            if (!(bad >= p_low && bad <= p_high)) states.push_back({bad, of_h ? good.h : good.s});
            if (!(bad >= lowest && bad <= highest)) states.push_back({good.p, bad});
        }
    }
    for (const InverseState& good : inverse_inside) {
        const double y = of_h ? good.h : good.s;
        states.insert(states.end(), {{std::nextafter(p_low, 0.0), y},
                                     {std::nextafter(p_high, infinity), y},
                                     {good.p, std::nextafter(lowest, -infinity)},
                                     {good.p, std::nextafter(highest, infinity)}});
    }
    states.push_back({51.0, of_h ? 5500.0 : 8.0});  // region 5 ends at 50 MPa
    return states;
}

TEST(BadInput, FunctionsOfPhAndPsOutsideTheRange) {
    for (const Pair pair : {Pair::ph, Pair::ps}) {
        const auto expect_failure = [pair](const auto& rows, double value, int code) {
            for (const auto& row : rows) {
                if (row.pair != pair) continue;
                for (const State& s : outside_states(pair)) {
                    EXPECT_ANSWER(value, code, row.call, &s.p, &s.t);
                }
            }
        };
        expect_failure(inverse_b, failed, of_line);
        expect_failure(inverse_o, failed, outside);
        expect_failure(inverse_region, 0.0, of_line);
        for (const auto& row : inverse_given) {
            if (row.pair != pair) continue;
            for (const State& s : outside_states(pair)) {
                int region = 0;
                EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &s.t, &region);
                EXPECT_EQ(region, 0) << row.name << ' ' << testing::PrintToString(s);
            }
        }
    }
}

// Enthalpies and entropies of no state, as (h, s) in the members p and t: no pair of bad values is
// one, and none goes with a good value; then the neighbours of the limits of p and T, beyond what
// rounding excuses, and of the coldest wet steam.
std::vector<State> outside_states_hs() {
    std::vector<State> states = {{5000.0, 5.0}, {2000.0, 1.0}, {1000.0, 5.0}, {3000.0, 11.0}};
    for (const double bad : bad_values) {
        for (const double other : bad_values) states.push_back({bad, other});
        for (const InverseState& good : inverse_inside) {
            states.insert(states.end(), {{bad, good.s}, {good.h, bad}});
        }
    }
    constexpr double hair = 1e-8;  // relative
    const auto add = [&states](OfTwo h, OfTwo s, double p, double t) {
        states.push_back({h(&p, &t), s(&p, &t)});
    };
    for (const double t : {273.15, 450.0, 620.0}) add(HPT1N, SPT1N, 100 * (1 + hair), t);
    for (const double t : {280.0, 600.0, 1000.0}) add(HPT2N, SPT2N, 0.0006112127 * (1 - hair), t);
    for (const double t : {880.0, 1073.15}) add(HPT2N, SPT2N, 100 * (1 + hair), t);
    for (const double t : {1080.0, 2273.15}) add(HPT5N, SPT5N, 50 * (1 + hair), t);
    for (const double p : {0.001, 5.0, 99.0}) add(HPT1N, SPT1N, p, 273.15 * (1 - hair));
    for (const double p : {51.0, 99.0}) add(HPT2N, SPT2N, p, 1073.15 * (1 + hair));
    for (const double p : {0.0007, 5.0, 49.0}) add(HPT5N, SPT5N, p, 2273.15 * (1 + hair));
    for (const double x : {0.1, 0.5, 1.0}) {
        const double t = 273.15 * (1 - hair), p = 0.000611212677;
        const double h = HPT1N(&p, &t), s = SPT1N(&p, &t);
        states.push_back({h + x * (HPT2N(&p, &t) - h), s + x * (SPT2N(&p, &t) - s)});
    }
    return states;
}

TEST(BadInput, FunctionsOfHsOutsideTheRange) {
    for (const State& s : outside_states_hs()) {
        for (const auto& row : hs_b) EXPECT_ANSWER(failed, of_line, row.call, &s.p, &s.t);
        for (const auto& row : hs_o) EXPECT_ANSWER(failed, outside, row.call, &s.p, &s.t);
        for (const auto& row : region_of_hs) EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &s.t);
    }
}

// Inside the range nobody touches the code; cp and w know no wet steam, the quality nothing else.
TEST(BadInput, FunctionsOfPhAndPsByPhase) {
    for (const InverseState& state : inverse_inside) {
        const bool wet = state.region == 9;
        const auto expect_answers = [&](const auto& rows) {
            for (const auto& row : rows) {
                const double y = row.pair == Pair::ph ? state.h : state.s;
                const Answer got = answer(of_line, row.call, &state.p, &y);
                const bool answered =
                    row.answers == Answers::always || wet == (row.answers == Answers::wet);
                EXPECT_EQ(got.value != failed, answered) << row.name << ' ' << state.region;
                EXPECT_TRUE(std::isfinite(got.value)) << row.name << ' ' << state.region;
                EXPECT_EQ(got.code, of_line) << row.name << ' ' << state.region;
            }
        };
        expect_answers(inverse_b), expect_answers(inverse_o), expect_answers(inverse_region);
        const auto expect_answers_hs = [&](const auto& rows) {
            for (const auto& row : rows) {
                const double s = SOPH(&state.p, &state.h);
                const Answer got = answer(of_line, row.call, &state.h, &s);
                EXPECT_TRUE(std::isfinite(got.value) && got.value > 0) << row.name;
                EXPECT_EQ(got.code, of_line) << row.name << ' ' << state.region;
            }
        };
        expect_answers_hs(hs_b), expect_answers_hs(hs_o), expect_answers_hs(region_of_hs);
        for (const auto& row : inverse_given) {
            const double y = row.pair == Pair::ph ? state.h : state.s;
            int region = 0;
            EXPECT_GT(answer(of_line, row.call, &state.p, &y, &region).value, 0.0) << row.name;
            EXPECT_EQ(region, state.region) << row.name;
            EXPECT_EQ(ECODETUL(), of_line) << row.name;
        }
    }
}

TEST(BadInput, SolvedPairs) {
    for (const auto& row : solved) {
        std::vector<State> none;
        // No enthalpy or entropy is that of cold liquid or of wet steam of any volume.
        const auto is_state = [](double bad, Of of, Of other) {
            return std::fabs(bad) < 1e-300 && (of == Of::h || of == Of::s) &&
                   (other == Of::v || other == Of::d);
        };
        for (const double bad : bad_values) {
            for (const double other : bad_values) none.push_back({bad, other});
            for (const InverseState& good : inverse_inside) {
                if (!is_state(bad, row.first, row.second))
                    none.push_back({bad, variable(row.second, good)});
                if (!is_state(bad, row.second, row.first))
                    none.push_back({variable(row.first, good), bad});
            }
        }
        for (const State& s : none) {
            const int code = row.call == POTV && s.t < 0 ? negative_density : row.code;
            EXPECT_ANSWER(row.failure, code == 0 ? of_line : code, row.call, &s.p, &s.t);
        }
        for (const InverseState& state : inverse_inside) {
            if (row.answers == Answers::second) continue;
            const bool wet = state.region == 9;
            const double x = variable(row.first, state), y = variable(row.second, state);
            const Answer got = answer(of_line, row.call, &x, &y);
            const bool answered =
                row.answers == Answers::always || wet == (row.answers == Answers::wet);
            EXPECT_EQ(got.value != failed, answered) << row.name << ' ' << state.region;
            EXPECT_EQ(got.code, of_line) << row.name << ' ' << state.region;
        }
    }
}

TEST(BadInput, SaturationLine) {
    for (const auto& row : saturation_line) {
        std::vector<double> arguments = {std::nextafter(row.lowest, -infinity),
                                         std::nextafter(row.highest, infinity)};
        for (const double bad : bad_values) {
            if (!(bad >= row.lowest && bad <= row.highest)) arguments.push_back(bad);
        }
        for (const double x : arguments) {
            const Answer got = answer(of_pt, row.call, &x);
            EXPECT_EQ(got.value, failed) << row.name << ' ' << testing::PrintToString(x);
            const int code = std::isnan(x) ? row.code_of_nan : row.code;
            EXPECT_EQ(got.code, code == 0 ? of_pt : code)
                << row.name << ' ' << testing::PrintToString(x);
        }
        // Just above no pressure at all there is a saturation temperature, but hardly a state.
        const double low = row.lowest == above_zero ? 0.00061122 : row.lowest;
        for (const double x : {low, row.highest}) {
            leave(of_pt);
            EXPECT_NE(row.call(&x), failed) << row.name << ' ' << testing::PrintToString(x);
            const int code = row.on_success == row.code_untouched ? of_pt : row.on_success;
            EXPECT_EQ(ECODETUL(), code) << row.name << ' ' << testing::PrintToString(x);
        }
    }
}

TEST(BadInput, SaturatedByAnotherProperty) {
    for (const auto& row : saturated_by) {
        constexpr double beyond = 1e-13;  // relative: a limit missed by a rounding counts as met
        std::vector<double> arguments = {row.lowest - beyond * std::fabs(row.lowest),
                                         row.highest * (1 + beyond)};
        for (const double bad : bad_values) {
            if (!(bad >= row.lowest && bad <= row.highest)) arguments.push_back(bad);
        }
        for (const double x : arguments) {
            const Answer got = answer(of_pt, row.call, &x);
            EXPECT_EQ(got.value, failed) << row.name << ' ' << testing::PrintToString(x);
            const int code = row.code(x);
            EXPECT_EQ(got.code, code == 0 ? of_pt : code)
                << row.name << ' ' << testing::PrintToString(x);
        }
        for (const double x : {row.lowest, 0.5 * (row.lowest + row.highest), row.highest}) {
            const Answer got = answer(of_pt, row.call, &x);
            EXPECT_GT(got.value, 0.0) << row.name << ' ' << testing::PrintToString(x);
            EXPECT_EQ(got.code, of_pt) << row.name << ' ' << testing::PrintToString(x);
        }
    }
}

TEST(BadInput, PhysicalPropertiesOfTd) {
    const double l = 0.5;
    std::vector<State> outside_td = {
        {5000.0, 300.0}, {1000.0, 650.0}, {1e-6, 300.0}};  // density, T
    for (const double bad : bad_values) {
        for (const double good : {1.0, 998.0}) outside_td.push_back({good, bad});
        for (const double good : {300.0, 700.0}) outside_td.push_back({bad, good});
    }
    for (const State& s : outside_td) {
        const int code = s.p < 0 ? no_density : own_range;
        for (const auto& row : physical_td) EXPECT_ANSWER(failed, code, row.call, &s.t, &s.p);
    }
    const State s{500.0, 300.0};
    for (const auto& row : physical_td) {
        EXPECT_ANSWER(row.failure, row.code == 0 ? of_line : row.code, row.call, &s.t, &s.p);
    }
    for (const auto& row : refractive_td) EXPECT_ANSWER(failed, row.code, row.call, &s.t, &s.p, &l);
}

// A bare formula answers everything; T beyond the critical point has no estimate of a density.
TEST(BadInput, UncheckedFormulasNeverFail) {
    leave(of_pt);
    for (const auto& row : unchecked) {
        for (const double t : bad_values) {
            EXPECT_NE(row.call(&t), failed) << row.name << ' ' << t;
            EXPECT_TRUE(row.call != FB23 || std::isnan(FB23(&t)) == std::isnan(t)) << t;
        }
        EXPECT_EQ(ECODETUL(), of_pt) << row.name;
    }
}

TEST(BadInput, WetSteam) {
    for (const auto& row : wet_steam) {
        const auto expect_failure = [&row](double first, double x, int code) {
            const State s = {first, x};
            EXPECT_ANSWER_AFTER(of_pt, failed, code == 0 ? of_pt : code, row.call, &s.p, &s.t);
        };
        std::vector<double> outside_first = {std::nextafter(row.lowest, -infinity),
                                             std::nextafter(row.highest, infinity)};
        std::vector<double> outside_x = {std::nextafter(1.0, 2.0)};
        for (const double bad : bad_values) {
            if (!(bad >= row.lowest && bad <= row.highest)) outside_first.push_back(bad);
            if (!(bad >= 0.0 && bad <= 1.0)) outside_x.push_back(bad);
        }
        for (const double first : outside_first) {
            for (const double x : {0.0, 0.5, 1.0}) expect_failure(first, x, row.code);
            for (const double x : outside_x) expect_failure(first, x, row.code);
        }
        const double within = row.highest == t_top ? 500.0 : 3.0;
        for (const double x : outside_x) expect_failure(within, x, row.code_of_x);
        const double low = row.highest != t_top ? 0.00061122 : row.lowest;
        for (const double first : {low, within, row.highest}) {
            for (const double x : {0.0, 0.5, 1.0}) {
                const Answer got = answer(of_pt, row.call, &first, &x);
                EXPECT_TRUE(got.value != failed && std::isfinite(got.value))
                    << row.name << ' ' << testing::PrintToString(State{first, x});
                EXPECT_EQ(got.code, of_pt) << row.name;
            }
        }
    }
}

// (T, density) with T in the member p of a state: no density at all, none of the range, wet steam.
TEST(BadInput, FunctionsOfTdOutsideTheRange) {
    std::vector<State> outside_range, negative;
    for (const double bad : bad_values) {
        for (const double d : {1000.0, 10.0, 0.1}) outside_range.push_back({bad, d});
        for (const double t : {300.0, 640.0, 700.0, 1000.0, 1500.0}) {
            (bad < 0.0 ? negative : outside_range).push_back({t, bad});
        }
        for (const double d : bad_values) (d < 0.0 ? negative : outside_range).push_back({bad, d});
    }
    // Denser than any fluid: the equations go on there, down to negative pressures.
    for (const double t : {300.0, 640.0, 700.0, 863.15, 1000.0, 1500.0}) {
        for (const double d : {1200.0, 1e4, 1e20}) outside_range.push_back({t, d});
    }
    for (const State& s : outside_range) {
        for (const auto& row : of_td) EXPECT_ANSWER(failed, row.outside, row.call, &s.p, &s.t);
        const double v = 1.0 / s.t;
        for (const auto& row : region_of_tv) EXPECT_ANSWER(0.0, of_line, row.call, &s.p, &v);
    }
    for (const State& s : negative) {
        for (const auto& row : of_td) EXPECT_ANSWER(failed, negative_density, row.call, &s.p, &s.t);
    }
}

TEST(BadInput, FunctionsOfTdByPhase) {
    for (const State& s : {State{300.0, 1000.0}, {300.0, 0.01}, {300.0, 5.0}, {640.0, 300.0}}) {
        const bool wet = s.t < 1000.0 && s.t > 1.0;
        for (const auto& row : of_td) {
            const int code = row.call == XOTD ? (wet ? 0 : -10058) : (wet ? row.code_of_wet : 0);
            const Answer got = answer(of_line, row.call, &s.p, &s.t);
            EXPECT_EQ(got.value == failed, code != 0) << row.name << testing::PrintToString(s);
            EXPECT_EQ(got.code, code == 0 ? of_line : code)
                << row.name << testing::PrintToString(s);
        }
    }
}

// The tables above are complete: a new export is to be given a row.
TEST(ExportTable, HoldsEveryExport) {
    std::set<std::string> tested = {"ECODETUL", "CODE",   "DITER3",  "FUGOPT",
                                    "FUGOTD",   "VISCVT", "DVISCDT", "DVISCDV"};
    const auto add = [&tested](const auto& rows) {
        for (const auto& row : rows) EXPECT_TRUE(tested.insert(row.name).second) << row.name;
    };
    add(constants), add(b_family), add(o_family), add(density_of_tp), add(region_of_pt);
    add(region_given), add(natives), add(saturation_line);
    add(physical_o), add(physical_td);
    add(refractive_pt), add(refractive_td), add(refractive_saturated);
    add(hs_b), add(hs_o), add(region_of_hs);
    add(inverse_b), add(inverse_o), add(inverse_region), add(inverse_given);
    add(unchecked), add(wet_steam), add(of_td), add(region_of_tv), add(solved), add(saturated_by);
    std::ifstream list(EXPORT_LIST);
    std::set<std::string> exported;
    for (std::string name; list >> name;) exported.insert(name);
    EXPECT_EQ(tested, exported) << "tests/host/export_table.hpp against " EXPORT_LIST;
}

}  // namespace
