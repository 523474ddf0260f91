// SPDX-License-Identifier: MIT
// The lines of each chart against states that are resolved by other variables than the lines were made of.
#include "charts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using vaprix::State;
using namespace vaprix::charts;

constexpr Chart all_charts[] = {Chart::ts, Chart::hs, Chart::ph, Chart::pt, Chart::pv};
constexpr double T_crit = 647.096, p_crit = 22.064;

View whole(Chart chart) {
    View view = view_of(chart);
    view.shows.fill(true);
    return view;
}

bool is_level(Kind kind) {
    return kind != Kind::saturation && kind != Kind::border && kind != Kind::limit;
}

// The state of a line at one coordinate of a point, the other being left to compare; in hs, where quality and
// temperature have no such resolver, that of the point.
State on_line(const View& view, Kind kind, double level, const Point& at) {
    const bool p_is_y = view.y.quantity == Quantity::p;
    switch (kind) {
        case Kind::isobar: return vaprix::of_ps(level, at.x);
        case Kind::isotherm: return view.state_at(at);
        case Kind::isochore:
            return view.chart == Chart::pt   ? vaprix::of_tv(at.x, level)
                   : view.chart == Chart::ph ? vaprix::of_vh(level, at.x)
                                             : vaprix::of_vs(level, at.x);
        case Kind::isenthalp:
            return p_is_y ? vaprix::of_ph(at.y, level) : vaprix::of_hs(level, at.x);
        case Kind::isentrope: return vaprix::of_ps(at.y, level);
        default:
            return p_is_y                    ? vaprix::of_px(at.y, level)
                   : view.chart == Chart::ts ? vaprix::of_tx(at.y, level)
                                             : view.state_at(at);
    }
}
double level_of(Kind kind, const State& state) {
    return kind == Kind::isotherm ? state.T() : kind == Kind::quality ? state.x() : 0;
}

double off_chord(const View& view, const Point& at, const Point& from, const Point& to) {
    const Point p = view.placed(at), a = view.placed(from), b = view.placed(to);
    const double x = b.x - a.x, y = b.y - a.y;
    const double length = std::hypot(x, y);
    return length < 1e-9 ? 0 : std::abs(x * (p.y - a.y) - y * (p.x - a.x)) / length;
}

TEST(Charts, PointsAreOfTheLevel) {
    for (const Chart chart : all_charts) {
        const View view = whole(chart);
        std::size_t compared = 0, across = 0;
        for (const Line& line : lines(view)) {
            if (!is_level(line.kind)) continue;
            for (const Point& point : line.points) {
                const State state = on_line(view, line.kind, line.level, point);
                if (!state) continue;  // within a rounding of a limit
                ++compared;
                const Point a = view.placed(point), b = view.placed(view.point_of(state));
                const double level = level_of(line.kind, state);
                const double by = std::max(std::hypot(a.x - b.x, a.y - b.y),
                                           level == 0 ? 0 : std::abs(level / line.level - 1));
                across += by > 1e-8 ? 1 : 0;
                ASSERT_LT(by, 5e-4)
                    << name_of(line.kind) << ' ' << line.label << ' ' << point.x << ' ' << point.y;
            }
        }
        // on the border of two regions the other equation may be the one that answers
        EXPECT_LT(100 * across, compared) << static_cast<int>(chart);
        EXPECT_GT(compared, 1000U);
    }
}

TEST(Charts, ChordsKeepToTheCurve) {
    for (const Chart chart : all_charts) {
        const View view = whole(chart);
        for (const Line& line : lines(view)) {
            if (!is_level(line.kind) || line.kind == Kind::isotherm) continue;
            for (std::size_t k = 1; k < line.points.size(); ++k) {
                const Point &a = line.points[k - 1], &b = line.points[k];
                for (const double t : {0.25, 0.5, 0.75}) {
                    const Point pa = view.placed(a), pb = view.placed(b);
                    const Point at{view.x.value_at(pa.x + t * (pb.x - pa.x)),
                                   view.y.value_at(pa.y + t * (pb.y - pa.y))};
                    const State state = on_line(view, line.kind, line.level, at);
                    if (!state) continue;
                    ASSERT_LT(off_chord(view, view.point_of(state), a, b), 2 * view.tolerance)
                        << name_of(line.kind) << ' ' << line.label << ' ' << at.x << ' ' << at.y;
                }
            }
        }
    }
}

TEST(Charts, SaturationLinePassesTheCriticalPoint) {
    const State critical = vaprix::liquid_of_t(T_crit);
    for (const Chart chart : all_charts) {
        const View view = whole(chart);
        const Point wanted = view.point_of(critical);
        std::size_t found = 0;
        for (const Line& line : lines(view)) {
            if (line.kind != Kind::saturation) continue;
            for (const Point& point : line.points) {
                found += point.x == wanted.x && point.y == wanted.y ? 1 : 0;
                EXPECT_LE(view.y.quantity == Quantity::T   ? point.y / T_crit
                          : view.y.quantity == Quantity::p ? point.y / p_crit
                                                           : 1,
                          1);
            }
        }
        EXPECT_EQ(found, 1U) << static_cast<int>(chart);
    }
}

// Lines stay in the view and end at its edge, at a limit or at the critical point, never in between.
TEST(Charts, LinesEndWhereTheyMust) {
    for (const Chart chart : all_charts) {
        View close = whole(chart);
        const Axis x = close.x, y = close.y;
        close.x.low = x.value_at(0.35), close.x.high = x.value_at(0.62);
        close.y.low = y.value_at(0.32), close.y.high = y.value_at(0.85);
        for (const View& view : {whole(chart), close}) {
            std::size_t ends = 0;
            for (const Line& line : lines(view)) {
                for (const Point& point : line.points) {
                    const Point at = view.placed(point);
                    ASSERT_TRUE(std::min(at.x, at.y) >= -1e-9 && std::max(at.x, at.y) <= 1 + 1e-9);
                }
                if (!is_level(line.kind)) continue;
                for (const Point& end : {line.points.front(), line.points.back()}) {
                    const Point at = view.placed(end);
                    const bool at_edge = std::min({at.x, at.y, 1 - at.x, 1 - at.y}) < 1e-9;
                    if (at_edge) continue;
                    ++ends;
                    // a step of the picture's hundredth goes out of the range somewhere
                    bool beyond = line.kind == Kind::quality;
                    for (int k = 0; k < 64 && !beyond; ++k) {
                        const double angle = k * 0.098174770424681;
                        const Point next{view.x.value_at(at.x + 1e-2 * std::cos(angle)),
                                         view.y.value_at(at.y + 1e-2 * std::sin(angle))};
                        beyond = !view.state_at(next);
                    }
                    ASSERT_TRUE(beyond)
                        << name_of(line.kind) << ' ' << line.label << ' ' << end.x << ' ' << end.y;
                }
            }
            EXPECT_LT(ends, 200U);
        }
    }
}

TEST(Charts, LevelsAreRoundInTheUnitsOfTheView) {
    View view = whole(Chart::hs);
    view.units[static_cast<std::size_t>(Quantity::p)] = {"bar", 10, 0};
    view.units[static_cast<std::size_t>(Quantity::T)] = {"°C", 1, 273.15};
    std::vector<std::string> labels;
    for (const Line& line : lines(view)) labels.push_back(line.label);
    for (const char* const label :
         {"0.01 bar", "20 bar", "500 bar", "100 °C", "x = 0.9", "10 m3/kg"})
        EXPECT_NE(std::find(labels.begin(), labels.end(), label), labels.end()) << label;
    const std::vector<double> at =
        ticks({Quantity::T, 273.15, 1073.15, false}, {"°C", 1, 273.15}, 10);
    ASSERT_EQ(at.size(), 9U);
    EXPECT_DOUBLE_EQ(at[3], 573.15);
    EXPECT_EQ(ticks({Quantity::p, 0.001, 100, true}, {"MPa"}, 20).size(), 16U);
    EXPECT_EQ(ticks({Quantity::p, 0.001, 100, true}, {"MPa"}, 8).size(), 6U);
    EXPECT_EQ(number(0.1 * 3), "0.3");
}

TEST(Charts, NothingIsDrawnWhereNothingIsValid) {
    View view = view_of(Chart::pt);
    view.x = {Quantity::T, 1100, 1200, false};
    view.y = {Quantity::p, 60, 90, true};
    EXPECT_TRUE(lines(view).empty());
}

TEST(Charts, ProcessesFollowTheirPath) {
    const View view = view_of(Chart::ts);
    // an isobar from water to steam, horizontal between the two ends of the saturation line
    const double p = 5;
    const std::vector<Point> heated = process(view, vaprix::of_pt(p, 400), vaprix::of_pt(p, 800));
    const double T = vaprix::liquid_of_p(p).T();
    for (const State& phase : {vaprix::liquid_of_p(p), vaprix::vapour_of_p(p)})
        EXPECT_TRUE(std::any_of(heated.begin(), heated.end(), [&](const Point& point) {
            return std::abs(point.x - phase.s()) < 1e-6 && std::abs(point.y - T) < 1e-6;
        }));
    const State from = vaprix::of_pt(10, 800), to = vaprix::of_ps(0.01, from.s());
    for (const Point& point : process(view, from, to)) EXPECT_NEAR(point.x, from.s(), 1e-9);
    const View of_h = view_of(Chart::ph);
    const State throttled = vaprix::of_ph(1, from.h());
    for (const Point& point : process(of_h, from, throttled)) EXPECT_NEAR(point.x, from.h(), 1e-6);
    const std::vector<Point> cooled =
        process(view, vaprix::of_tv(700, 0.01), vaprix::of_tv(450, 0.01));
    for (const Point& point : cooled) EXPECT_NEAR(vaprix::of_tv(point.y, 0.01).s(), point.x, 1e-9);
}

}  // namespace
