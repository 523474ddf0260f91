// SPDX-License-Identifier: MIT
//
// What the page calls of WebAssembly: the C++ interface as flat functions on the state that was asked for last.
// Variables are letters, texts end with 0, arrays of properties are in the order of the catalogue's table.
#include <array>
#include <string_view>
#include <tuple>
#include <utility>
#include <vaprix.hpp>
#include <vector>

#include "charts.hpp"
#include "pairs.hpp"
#include "tables.hpp"

#define VAPRIX_PAGE(result, name, arguments)                                       \
    extern "C" __attribute__((export_name(#name))) result vaprix_##name arguments; \
    result vaprix_##name arguments

namespace {

using vaprix::State;

constexpr std::size_t most_properties = 40;

State state, kept;
std::array<double, most_properties> answer;

const vaprix::cli::Known* pair_of(const char& first, const char& second) {
    return vaprix::cli::find_pair({&first, 1}, {&second, 1});
}

State column(int phase) {
    return phase == 0 ? state : phase == 1 ? state.liquid() : state.vapour();
}

}  // namespace

// How many states two variables may have, 0 if they are no pair.
VAPRIX_PAGE(int, branches, (char first, char second)) {
    const auto* pair = pair_of(first, second);
    return pair == nullptr ? 0 : pair->other == nullptr ? 1 : 2;
}

// Resolves a state and answers its error code. family: 0 O, 1 B; branch: 1 for the second state of two.
VAPRIX_PAGE(int, resolve, (char first, char second, double a, double b, int family, int branch)) {
    const auto* pair = pair_of(first, second);
    const bool swapped = pair->first.front() != first;
    const auto of = branch == 0 ? pair->of : pair->other;
    state = of(swapped ? b : a, swapped ? a : b, static_cast<vaprix::Family>(family));
    return state.code();
}

// The properties of the state, 1 of its liquid, 2 of its vapour.
VAPRIX_PAGE(const double*, properties, (int phase)) {
    const State of = column(phase);
    for (std::size_t k = 0; k < vaprix::cli::properties.size(); ++k)
        answer[k] = vaprix::cli::properties[k].of(of);
    return answer.data();
}

VAPRIX_PAGE(int, region, ()) { return state.region(); }

VAPRIX_PAGE(const char*, phase_in_words, ()) { return vaprix::cli::phase_of(state).data(); }

VAPRIX_PAGE(const char*, region_in_words, ()) { return vaprix::cli::region_in_words(state).data(); }

VAPRIX_PAGE(double, superheat, ()) { return vaprix::cli::superheat_of(state); }

// (dz/dx)_y, by the rows of vaprix::Property.
VAPRIX_PAGE(double, derivative, (int z, int x, int y)) {
    using vaprix::Property;
    return state.derivative(static_cast<Property>(z), static_cast<Property>(x),
                            static_cast<Property>(y));
}

VAPRIX_PAGE(double, along_line, (int z, int x)) {
    return state.along_line(static_cast<vaprix::Property>(z), static_cast<vaprix::Property>(x));
}

// Charts. Places are 0 to 1 from the lower left corner of the whole chart, whatever part of it is seen.

namespace {

using namespace vaprix::charts;

View whole = view_of(Chart::ts), seen = whole;
std::vector<double> drawn;

const Axis& axis(int y) { return y == 0 ? whole.x : whole.y; }

void draw(const Point& point) {
    const Point at = whole.placed(point);
    drawn.insert(drawn.end(), {at.x, at.y});
}

}  // namespace

// The whole of a chart; answers the kinds of lines that are usual in it, a bit each.
VAPRIX_PAGE(unsigned, chart, (int chart)) {
    whole = view_of(static_cast<Chart>(chart));
    seen = whole;
    unsigned shown = 0;
    for (std::size_t k = 0; k < kinds; ++k) shown |= unsigned{whole.shows[k]} << k;
    return shown;
}

VAPRIX_PAGE(void, show, (unsigned shown)) {
    for (std::size_t k = 0; k < kinds; ++k) seen.shows[k] = (shown >> k & 1) != 0;
}

VAPRIX_PAGE(void, unit, (int quantity, double times, double minus)) {
    seen.units[static_cast<std::size_t>(quantity)] = {"", times, minus};
}

// What is seen, by places, with so many levels of a kind at most.
VAPRIX_PAGE(void, look,
            (double x_low, double x_high, double y_low, double y_high, std::size_t levels)) {
    seen.levels = levels;
    std::tie(seen.x.low, seen.x.high) =
        std::pair(whole.x.value_at(x_low), whole.x.value_at(x_high));
    std::tie(seen.y.low, seen.y.high) =
        std::pair(whole.y.value_at(y_low), whole.y.value_at(y_high));
}

// Each of the following leaves numbers in drawn() and answers how many.
VAPRIX_PAGE(const double*, drawn, ()) { return drawn.data(); }

// Of each line its kind, level, number of points, and their places.
VAPRIX_PAGE(std::size_t, lines, ()) {
    drawn.clear();
    for (const Line& line : lines(seen)) {
        drawn.insert(drawn.end(), {static_cast<double>(line.kind), line.level,
                                   static_cast<double>(line.points.size())});
        for (const Point& point : line.points) draw(point);
    }
    return drawn.size();
}

// Places of the process from the state that was kept to the one that was asked for last.
VAPRIX_PAGE(void, keep, ()) { kept = state; }
VAPRIX_PAGE(std::size_t, process, ()) {
    drawn.clear();
    for (const Point& point : process(seen, kept, state)) draw(point);
    return drawn.size();
}

// Values of the marks of an axis, 0 of x, 1 of y.
VAPRIX_PAGE(std::size_t, ticks, (int y, std::size_t count)) {
    const Axis& of = y == 0 ? seen.x : seen.y;
    drawn = ticks(of, seen.unit_of(of.quantity), count);
    return drawn.size();
}

VAPRIX_PAGE(double, placed, (int y, double value)) { return axis(y).placed(value); }
VAPRIX_PAGE(double, value_at, (int y, double place)) { return axis(y).value_at(place); }
