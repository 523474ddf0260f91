// SPDX-License-Identifier: MIT
#include <cmath>

#include "charts.hpp"
#include "frame/constants.hpp"

namespace vaprix::charts {
namespace {

struct Known {
    Axis y, x;
    State (*of)(double y, double x, Family family);
    std::vector<Kind> kinds;
};

Known known(Chart chart) {
    constexpr double p_low = 0.001;
    const Axis T{Quantity::T, T_min, T_25, false}, s{Quantity::s, 0, 10, false},
        h{Quantity::h, 0, 4200, false}, p{Quantity::p, p_low, p_max, true},
        v{Quantity::v, 0.0008, 200, true};
    switch (chart) {
        case Chart::ts:
            return {T, s, of_ts, {Kind::quality, Kind::isobar, Kind::isochore, Kind::isenthalp}};
        case Chart::hs: return {h, s, of_hs, {Kind::quality, Kind::isobar, Kind::isotherm}};
        case Chart::ph:
            return {p, h, of_ph, {Kind::quality, Kind::isotherm, Kind::isochore, Kind::isentrope}};
        case Chart::pt:
            return {p, T, of_pt, {Kind::isochore, Kind::isenthalp, Kind::isentrope, Kind::border}};
        default: return {p, v, of_pv, {Kind::quality, Kind::isotherm, Kind::isentrope}};
    }
}

}  // namespace

double value_of(Quantity quantity, const State& state) noexcept {
    switch (quantity) {
        case Quantity::p: return state.p();
        case Quantity::T: return state.T();
        case Quantity::v: return state.v();
        case Quantity::h: return state.h();
        case Quantity::s: return state.s();
        default: return state.x();
    }
}

std::string name_of(Kind kind) {
    static constexpr const char* names[kinds] = {"saturation", "quality",  "isobar",
                                                 "isotherm",   "isochore", "isenthalp",
                                                 "isentrope",  "border",   "limit"};
    return names[static_cast<std::size_t>(kind)];
}

double Axis::placed(double value) const noexcept {
    return logarithmic ? std::log(value / low) / std::log(high / low)
                       : (value - low) / (high - low);
}
double Axis::value_at(double place) const noexcept {
    return logarithmic ? low * std::pow(high / low, place) : low + place * (high - low);
}

State View::state_at(const Point& point) const noexcept {
    return known(chart).of(point.y, point.x, Family::O);
}

View view_of(Chart chart) {
    const Known of = known(chart);
    View view{chart, of.x, of.y, {}, {}};
    view.units = {Unit{"MPa"}, Unit{"K"}, Unit{"m3/kg"}, Unit{"kJ/kg"}, Unit{"kJ/(kg K)"}, Unit{}};
    view.shown(Kind::saturation) = view.shown(Kind::limit) = true;
    for (const Kind kind : of.kinds) view.shown(kind) = true;
    return view;
}

}  // namespace vaprix::charts
