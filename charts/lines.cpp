// SPDX-License-Identifier: MIT
#include "regions/b23.hpp"  // first: its arguments would shadow p and T of vaprix.hpp

#include <algorithm>
#include <cmath>

#include "charts.hpp"
#include "frame/constants.hpp"
#include "levels.hpp"
#include "trace.hpp"

namespace vaprix::charts {
namespace {

// A path between two values of its parameter.
struct Run {
    Path path;
    std::vector<double> nodes;
};

double highest_t(double p) { return p > p_max_5 ? T_25 : T_max; }

Run isobar(double p) {
    return {[p](double h) { return of_ph(p, h); },
            {of_pt(p, T_min).h(), of_pt(p, highest_t(p)).h()}};
}
Run isotherm(double t) {
    const State thin = of_pt(p_min, t);  // but for T_min, where it is the saturated liquid
    const double d_low = thin.region() == 1 ? vapour_of_t(t).d() : thin.d();
    const double d_high = of_pt(t > T_25 ? p_max_5 : p_max, t).d();
    return {[t](double log_d) { return of_td(t, std::exp(log_d)); },
            {std::log(d_high), std::log(d_low)}};
}
Run isochore(double v) {
    return {[v](double t) { return of_tv(t, v); }, {T_min, T_max}};
}
Run isenthalp(double h) {
    return {[h](double log_p) { return of_ph(std::exp(log_p), h); },
            {std::log(p_min), std::log(p_max)}};
}
Run isentrope(double s) {
    return {[s](double log_p) { return of_ps(std::exp(log_p), s); },
            {std::log(p_min), std::log(p_max)}};
}

// Along the saturation line by u with T = Tc (1 - |u|^3), in which h, s and v have a slope at the critical point too.
double t_of(double u) { return u == 0 ? T_crit : T_crit * (1 - std::abs(u * u * u)); }
const double u_low = std::cbrt(1 - T_min / T_crit);

Run quality(double x) {
    return {[x](double u) { return of_tx(std::max(T_min, t_of(u)), x); }, {u_low, 0}};
}
// Liquid up to the critical point, vapour down from it.
Run saturation(bool both) {
    const Path path = [](double u) {
        const double t = std::max(T_min, t_of(u));
        return u <= 0 ? liquid_of_t(t) : vapour_of_t(t);
    };
    return {path, both ? std::vector<double>{-u_low, 0, u_low} : std::vector<double>{-u_low, 0}};
}

Run b23() {
    return {[](double t) { return of_pt(std::min(p_max, p_b23(t)), t); }, {T_13, T_23_max}};
}
// Of a temperature between two pressures.
Run between(double t, double p_low, double p_high) {
    return {[t](double log_p) { return of_pt(std::clamp(std::exp(log_p), p_min, p_max), t); },
            {std::log(p_low), std::log(p_high)}};
}

struct Levels {
    Kind kind;
    Quantity quantity;
    bool logarithmic;
    Run (*of)(double level);
};
constexpr Levels families[] = {
    {Kind::isochore, Quantity::v, true, isochore},
    {Kind::isentrope, Quantity::s, false, isentrope},
    {Kind::isenthalp, Quantity::h, false, isenthalp},
    {Kind::isotherm, Quantity::T, false, isotherm},
    {Kind::isobar, Quantity::p, true, isobar},
    {Kind::quality, Quantity::x, false, quality},
};

// From where to where a quantity is seen.
struct Range {
    double low = HUGE_VAL, high = -HUGE_VAL;
};

class Picture {
public:
    explicit Picture(const View& view) : view_(view) {}

    std::vector<Line> all() {
        draw_borders();
        draw_limits();
        find_ranges();
        for (const Levels& family : families) draw(family);
        if (view_.shown(Kind::saturation))
            draw(Kind::saturation, 0, "", saturation(view_.chart != Chart::pt));
        return std::move(lines_);
    }

private:
    void draw(Kind kind, double level, const std::string& label, const Run& run) {
        for (std::vector<Point>& points : traced(view_, run.path, run.nodes, true))
            lines_.push_back({kind, level, label, std::move(points)});
    }
    std::string label(Quantity quantity, double level) const {
        const Unit& unit = view_.unit_of(quantity);
        const std::string text = number(unit.shown(level));
        if (quantity == Quantity::x) return "x = " + text + unit.name;
        return unit.name.empty() ? text : text + " " + unit.name;
    }
    void draw_borders() {
        if (!view_.shown(Kind::border)) return;
        draw(Kind::border, T_13, label(Quantity::T, T_13), between(T_13, psat_13, p_max));
        draw(Kind::border, 0, "B23", b23());
        draw(Kind::border, T_25, label(Quantity::T, T_25), between(T_25, p_min, p_max_5));
    }
    void draw_limits() {
        if (!view_.shown(Kind::limit)) return;
        const auto t = [&](double level) { return label(Quantity::T, level); };
        const auto p = [&](double level) { return label(Quantity::p, level); };
        draw(Kind::limit, T_min, t(T_min), isotherm(T_min));
        draw(Kind::limit, p_max, p(p_max), isobar(p_max));
        draw(Kind::limit, T_25, t(T_25), between(T_25, p_max_5, p_max));
        Run hot = isobar(p_max_5);
        hot.nodes[0] = of_pt(p_max_5, T_25).h();
        draw(Kind::limit, p_max_5, p(p_max_5), hot);
        draw(Kind::limit, T_max, t(T_max), between(T_max, p_min, p_max_5));
        draw(Kind::limit, p_min, p(0.000611), isobar(p_min));
    }
    // By states all over the view; those of region 5 count where there are no others.
    void find_ranges() {
        constexpr int steps = 24;
        std::array<Range, 6> hot;
        bool any = false;
        for (int i = 0; i <= steps; ++i) {
            for (int k = 0; k <= steps; ++k) {
                const State state = view_.state_at({view_.x.value_at(double{1} * i / steps),
                                                    view_.y.value_at(double{1} * k / steps)});
                any = any || (state && state.region() != 5);
                if (state) widen(state.region() == 5 ? hot : ranges_, state);
            }
        }
        if (!any) ranges_ = hot;
    }
    static void widen(std::array<Range, 6>& ranges, const State& state) {
        for (std::size_t q = 0; q < ranges.size(); ++q) {
            const double value = value_of(static_cast<Quantity>(q), state);
            if (std::isnan(value)) continue;
            ranges[q] = {std::min(ranges[q].low, value), std::max(ranges[q].high, value)};
        }
    }
    void draw(const Levels& family) {
        const Quantity of = family.quantity;
        if (!view_.shown(family.kind) || of == view_.x.quantity || of == view_.y.quantity) return;
        const bool is_quality = family.kind == Kind::quality;
        if (is_quality && view_.chart == Chart::pt) return;
        const std::size_t count =
            is_quality ? std::min<std::size_t>(view_.levels, 10) : view_.levels;
        const Range& range = ranges_[static_cast<std::size_t>(of)];
        if (!(range.high > range.low)) return;
        for (const double level :
             levels(range.low, range.high, family.logarithmic, view_.unit_of(of), count)) {
            if (is_quality && !(level > 0 && level < 1)) continue;
            draw(family.kind, level, label(of, level), family.of(level));
        }
    }

    const View& view_;
    std::vector<Line> lines_;
    std::array<Range, 6> ranges_;
};

}  // namespace

std::vector<Line> lines(const View& view) { return Picture(view).all(); }

std::vector<Point> process(const View& view, const State& from, const State& to) {
    const auto near = [&](double a, double b, double relative) {
        return std::abs(a - b) <= relative * std::abs(b);
    };
    const auto mixed = [](double a, double b, double t) { return t == 1 ? b : a + t * (b - a); };
    const auto powered = [](double a, double b, double t) {
        return t == 1 ? b : a * std::pow(b / a, t);
    };
    const bool is_single = from.region() != 4 && to.region() != 4;
    Path path = [&](double t) {
        return of_ps(powered(from.p(), to.p(), t), mixed(from.s(), to.s(), t));
    };
    if (std::abs(from.h() - to.h()) <= 0.5 && !near(from.p(), to.p(), 1e-3))
        path = [&](double t) {
            return of_ph(powered(from.p(), to.p(), t), mixed(from.h(), to.h(), t));
        };
    else if (near(from.v(), to.v(), 1e-4) && !near(from.p(), to.p(), 1e-3) &&
             !near(from.s(), to.s(), 1e-3))
        path = [&](double t) {
            return of_tv(mixed(from.T(), to.T(), t), mixed(from.v(), to.v(), t));
        };
    else if (is_single && near(from.T(), to.T(), 1e-5))
        path = [&](double t) {
            return of_td(mixed(from.T(), to.T(), t), powered(from.d(), to.d(), t));
        };
    const std::vector<std::vector<Point>> runs = traced(view, path, {0, 1}, false);
    std::vector<Point> out{view.point_of(from)};
    if (runs.size() == 1) out.insert(out.end(), runs[0].begin(), runs[0].end());
    out.push_back(view.point_of(to));
    return out;
}

}  // namespace vaprix::charts
