// SPDX-License-Identifier: MIT
//
// The lines of the usual charts of water and steam, as polylines that any program may draw.
//
//     vaprix::charts::View view = vaprix::charts::view_of(vaprix::charts::Chart::hs);
//     for (const vaprix::charts::Line& line : vaprix::charts::lines(view)) {
//         for (const vaprix::charts::Point& point : line.points) {
//             const vaprix::charts::Point at = view.placed(point);   // 0 to 1 from the lower left corner
//
// Numbers are in the units of vaprix.hpp: p MPa, T K, v m3/kg, h kJ/kg, s kJ/(kg K), x kg/kg. Units that are wanted
// instead only choose which levels are round, and how labels name them.
#pragma once

#include <array>
#include <string>
#include <vaprix.hpp>
#include <vector>

namespace vaprix::charts {

// Ordinate over abscissa; axes of p and v are logarithmic.
enum class Chart { ts, hs, ph, pt, pv };

enum class Quantity { p, T, v, h, s, x };
[[nodiscard]] double value_of(Quantity quantity, const State& state) noexcept;

// A value is shown as value * times - minus.
struct Unit {
    std::string name;
    double times = 1, minus = 0;
    [[nodiscard]] double shown(double value) const noexcept { return value * times - minus; }
    [[nodiscard]] double meant(double shown) const noexcept { return (shown + minus) / times; }
};

struct Axis {
    Quantity quantity;
    double low, high;
    bool logarithmic;
    [[nodiscard]] double placed(double value) const noexcept;  // 0 at low, 1 at high
    [[nodiscard]] double value_at(double place) const noexcept;
};

struct Point {
    double x, y;
};

enum class Kind {
    saturation,
    quality,
    isobar,
    isotherm,
    isochore,
    isenthalp,
    isentrope,
    border,
    limit
};
inline constexpr std::size_t kinds = 9;
[[nodiscard]] std::string name_of(Kind kind);  // "isobar"

// What is seen of a chart, and how.
struct View {
    Chart chart;
    Axis x, y;
    std::array<bool, kinds> shows;  // by kind
    std::array<Unit, 6> units;      // by quantity
    double tolerance = 1e-4;  // of a chord from its curve, in widths or heights of the picture
    std::size_t levels = 20;  // of a kind, at most

    [[nodiscard]] Point placed(const Point& point) const noexcept {
        return {x.placed(point.x), y.placed(point.y)};
    }
    [[nodiscard]] Point point_of(const State& state) const noexcept {
        return {value_of(x.quantity, state), value_of(y.quantity, state)};
    }
    // The state at a point of the chart, of several in ts the one of lowest pressure; a failed one outside the range.
    [[nodiscard]] State state_at(const Point& point) const noexcept;
    [[nodiscard]] const Unit& unit_of(Quantity quantity) const noexcept {
        return units[static_cast<std::size_t>(quantity)];
    }
    bool& shown(Kind kind) noexcept { return shows[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] bool shown(Kind kind) const noexcept {
        return shows[static_cast<std::size_t>(kind)];
    }
};

// The whole chart but for region 5, with the kinds of lines that are usual in it.
[[nodiscard]] View view_of(Chart chart);

// A part of a line that is seen without a break. It ends where the line leaves the view or the range of validity; where
// it passes a region's border or the saturation line it has a node on each side.
struct Line {
    Kind kind;
    double level;       // of the quantity that is constant; 0 of the saturation line and B23
    std::string label;  // "10 MPa"
    std::vector<Point> points;
};

// All that the view shows, in the order in which it is drawn: borders, limits, levels, saturation line.
[[nodiscard]] std::vector<Line> lines(const View& view);

// From state to state as processes run: at constant h, v or T if these agree to about a digit of a steam table, else
// with s linear in ln p, so that isobars and isentropes are exact. Not cut at the view.
[[nodiscard]] std::vector<Point> process(const View& view, const State& from, const State& to);

// Round numbers as they are shown, 1-2-5 steps or on a logarithmic axis 1-2-5 to a decade, or decades; at most `count`
// of these. The values are in the unit of the axis.
[[nodiscard]] std::vector<double> ticks(const Axis& axis, const Unit& unit, std::size_t count);

// A number without the last digits that rounding left in it: "0.3".
[[nodiscard]] std::string number(double value);

}  // namespace vaprix::charts
