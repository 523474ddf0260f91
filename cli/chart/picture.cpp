// SPDX-License-Identifier: MIT
#include "picture.hpp"

#include <algorithm>
#include <cmath>

#include "labels.hpp"
#include "tables.hpp"

namespace vaprix::cli {
namespace {

using charts::Axis;
using charts::Kind;
using charts::Line;
using charts::Quantity;
using charts::View;

constexpr const char* title = "Water and steam after IAPWS-IF97: ";  // and the symbols of the axes

constexpr Kind all_kinds[] = {Kind::saturation, Kind::quality,  Kind::isobar,
                              Kind::isotherm,   Kind::isochore, Kind::isenthalp,
                              Kind::isentrope,  Kind::border,   Kind::limit};
constexpr std::size_t number_of(Kind kind) { return static_cast<std::size_t>(kind); }

struct Look {
    Colour light, dark;
    double width;
    std::vector<double> dashes;
    double weight;     // against labels of others that would cover it
    double preferred;  // place of the label, along the line
    const char* legend;
    Quantity quantity;
};
const Look& look_of(Kind kind) {
    static const Look looks[charts::kinds] = {
        {0x1a1a1a, 0xf2f2f2, 1.6, {}, 2, 0, "saturation line", Quantity::x},
        {0x7d8790, 0x8b96a1, 0.6, {}, 0.7, 0.1, "quality", Quantity::x},
        {0x1f5fbf, 0x6aa5f8, 0.75, {}, 1, 0.9, "isobars", Quantity::p},
        {0xc0352b, 0xf08277, 0.75, {}, 1, 0.8, "isotherms", Quantity::T},
        {0x2e8540, 0x6cc47d, 0.75, {}, 1, 0.7, "isochores", Quantity::v},
        {0x8a3fa8, 0xc88ae0, 0.75, {}, 1, 0.5, "isenthalps", Quantity::h},
        {0xa96200, 0xe3a54a, 0.75, {}, 1, 0.6, "isentropes", Quantity::s},
        {0x6b6b6b, 0xa6a6a6, 0.75, {5, 3}, 0.7, 0.8, "borders of regions", Quantity::T},
        {0x6b6b6b, 0xa6a6a6, 0.9, {7, 2.5, 1.5, 2.5}, 0.7, 0.5, "limits of validity", Quantity::T}};
    return looks[number_of(kind)];
}

struct Named {
    const char *name, *symbol;
};
Named named(Quantity quantity) {
    switch (quantity) {
        case Quantity::p: return {"Pressure", "p"};
        case Quantity::T: return {"Temperature", "T"};
        case Quantity::v: return {"Specific volume", "v"};
        case Quantity::h: return {"Specific enthalpy", "h"};
        default: return {"Specific entropy", "s"};
    }
}

// Multiples 2 to 9 of the powers of ten, as a logarithmic axis has them, or fifths of the step.
std::vector<double> minor_ticks(const Axis& axis, const charts::Unit& unit, std::size_t count) {
    if (!axis.logarithmic) return charts::ticks(axis, unit, 5 * count);
    std::vector<double> out;
    const double low = unit.shown(axis.low), high = unit.shown(axis.high);
    const int last = static_cast<int>(std::floor(std::log10(high)));
    for (int decade = static_cast<int>(std::floor(std::log10(low))); decade <= last; ++decade) {
        for (int k = 2; k <= 9; ++k) {
            const double value = k * std::pow(10, decade);
            if (value >= low && value <= high) out.push_back(unit.meant(value));
        }
    }
    return out;
}

class Picture {
public:
    Picture(Canvas& canvas, const View& view, const std::vector<Station>& stations,
            const Style& style)
        : canvas_(canvas),
          view_(view),
          stations_(stations),
          style_(style),
          size_(std::clamp(12 * std::sqrt(style.width * style.height / (1000.0 * 750)), 9.0, 60.0)),
          stroke_(size_ / 12),
          ink_(style.is_dark ? 0xd8dce1 : 0x262626),
          process_colour_(style.is_dark ? 0xffd21f : 0xd4006a) {
        view_.levels = static_cast<std::size_t>(std::clamp(style.height / size_ / 3, 8.0, 24.0));
        for (const Line& line : charts::lines(view_)) {
            shown_[number_of(line.kind)] = true;
            Drawn drawn{line.kind, line.level, line.label, {}};
            drawn.points = line.points;
            lines_.push_back(std::move(drawn));
        }
    }

    void draw() {
        lay_out();
        Labels labels(plot_);
        place_lines(labels);
        place_stations(labels);
        draw_axis(view_.x, true);
        draw_axis(view_.y, false);
        canvas_.clip(plot_);
        for (const Drawn& line : lines_)
            canvas_.line(line.spots, pen_of(line.kind), charts::name_of(line.kind),
                         line.kind == Kind::saturation ? "saturation line" : line.label);
        draw_critical_point();
        canvas_.end_clip();
        canvas_.rectangle(plot_, {ink_, stroke_, {}});
        draw_labels(labels);
        draw_process();
        draw_title();
        draw_legend();
    }

private:
    struct Drawn {
        Kind kind;
        double level;
        std::string label;
        std::vector<charts::Point> points;
        std::vector<Spot> spots = {};
    };
    struct Item {
        std::vector<Words> words;
        const Look* look;  // null of a station
        double width;
        Spot at = {};  // x in the picture, y in the legend
    };

    struct Number {
        std::string text;
        Spot at;
        std::optional<Spot> label = {};
    };

    [[nodiscard]] double width_of_tick(const Axis& axis) const {
        double out = 0;
        for (const double value : charts::ticks(axis, unit_of(axis), 10))
            out = std::max(out, width_of({{charts::number(unit_of(axis).shown(value))}}, size_));
        return out;
    }
    [[nodiscard]] const charts::Unit& unit_of(const Axis& axis) const {
        return view_.unit_of(axis.quantity);
    }
    [[nodiscard]] Spot spot_of(const charts::Point& point) const {
        const charts::Point at = view_.placed(point);
        return {plot_.left + at.x * plot_.width, plot_.bottom() - at.y * plot_.height};
    }
    [[nodiscard]] Colour colour_of(const Look& look) const {
        return style_.is_dark ? look.dark : look.light;
    }
    [[nodiscard]] Pen pen_of(const Look& look) const {
        Pen pen{colour_of(look), look.width * stroke_, look.dashes};
        for (double& dash : pen.dashes) dash *= stroke_;
        return pen;
    }
    [[nodiscard]] Pen pen_of(Kind kind) const { return pen_of(look_of(kind)); }

    void lay_out() {
        for (const Kind kind : all_kinds) {
            if (!shown_[number_of(kind)]) continue;
            const Look& look = look_of(kind);
            const std::string unit = view_.unit_of(look.quantity).name;
            std::vector<Words> words{{look.legend}};
            if (kind == Kind::quality) {
                words.push_back({" "});
                words.push_back({"x", true});
            } else if (kind >= Kind::isobar && kind <= Kind::isentrope) {
                words.push_back({" "});
                words.push_back({named(look.quantity).symbol, true});
                words.push_back({" in " + unit});
            }
            add_item(std::move(words), &look);
        }
        for (std::size_t k = 0; k < stations_.size(); ++k)
            if (!stations_[k].name.empty() && !is_met_again(k))
                add_item({{std::to_string(k + 1) + " " + stations_[k].name}}, nullptr);
        const double left = 2.9 * size_ + width_of_tick(view_.y), right = 1.8 * size_;
        double x = left, y = 0;
        for (Item& item : items_) {
            const bool begins =
                &item != items_.data() && item.look == nullptr && (&item)[-1].look != nullptr;
            if (x > left && (begins || x + item.width > style_.width - right)) {
                x = left;
                y += 1.5 * size_;
            }
            item.at = {x, y};
            x += item.width;
        }
        const double top = 2.6 * size_;
        const double bottom = (items_.empty() ? 4.2 : 5.7) * size_ + y;
        plot_ = {left, top, style_.width - left - right, style_.height - top - bottom};
    }
    void add_item(std::vector<Words> words, const Look* look) {
        const double width = width_of(words, size_) + (look != nullptr ? 4.2 : 1.5) * size_;
        items_.push_back({std::move(words), look, width});
    }

    void place_lines(Labels& labels) {
        for (std::size_t k = 0; k < lines_.size(); ++k) {
            Drawn& line = lines_[k];
            for (const charts::Point& point : line.points) line.spots.push_back(spot_of(point));
            labels.avoid(line.spots, first_of(k), look_of(line.kind).weight);
        }
    }
    // Lines of a level are one to the labels, those of the kinds without levels each their own.
    [[nodiscard]] int first_of(std::size_t k) const {
        std::size_t first = k;
        while (first > 0 && lines_[first - 1].kind == lines_[k].kind &&
               lines_[first - 1].label == lines_[k].label)
            --first;
        return static_cast<int>(first);
    }

    void draw_axis(const Axis& axis, bool is_x) {
        const charts::Unit& unit = unit_of(axis);
        const double length = is_x ? plot_.width : plot_.height;
        const auto count =
            static_cast<std::size_t>(std::max(2.0, length / (is_x ? 6 : 3.5) / size_));
        const auto spot = [&](double value) {
            const double at = axis.placed(value);
            return is_x ? Spot{plot_.left + at * plot_.width, plot_.bottom()}
                        : Spot{plot_.left, plot_.bottom() - at * plot_.height};
        };
        const auto mark = [&](double value, double size) {
            const Spot a = spot(value);
            const Spot b = is_x ? Spot{a.x, a.y - size} : Spot{a.x + size, a.y};
            const Spot c = is_x ? Spot{a.x, plot_.top} : Spot{plot_.right(), a.y};
            const Spot d = is_x ? Spot{a.x, plot_.top + size} : Spot{plot_.right() - size, a.y};
            canvas_.line({a, b}, {ink_, 0.8 * stroke_, {}}, "", "");
            canvas_.line({c, d}, {ink_, 0.8 * stroke_, {}}, "", "");
        };
        for (const double value : minor_ticks(axis, unit, count)) mark(value, 0.25 * size_);
        for (const double value : charts::ticks(axis, unit, count)) {
            mark(value, 0.5 * size_);
            const Spot at = spot(value);
            const Spot below{at.x, at.y + 1.3 * size_},
                beside{at.x - 0.5 * size_, at.y + 0.36 * size_};
            canvas_.text({{{charts::number(unit.shown(value))}},
                          is_x ? below : beside,
                          size_,
                          ink_,
                          is_x ? Anchor::middle : Anchor::end,
                          0,
                          false,
                          is_x ? "tick-x" : "tick-y"});
        }
        const Named of = named(axis.quantity);
        std::vector<Words> words{
            {std::string(of.name) + " "}, {of.symbol, true}, {" in " + unit.name}};
        const Spot under{plot_.left + plot_.width / 2, plot_.bottom() + 2.9 * size_};
        const Spot left{1.4 * size_, plot_.top + plot_.height / 2};
        canvas_.text({std::move(words), is_x ? under : left, 1.05 * size_, ink_, Anchor::middle,
                      is_x ? 0.0 : -90.0, false, is_x ? "title-x" : "title-y"});
    }

    void draw_critical_point() {
        if (!view_.shown(Kind::saturation)) return;
        const Spot at = spot_of(view_.point_of(vaprix::liquid_of_t(T_crit)));
        canvas_.dot(at, 2.6 * stroke_, colour_of(look_of(Kind::saturation)), "critical point");
    }

    // The number, with its unit if that is short.
    [[nodiscard]] std::string label_of(const Drawn& line) const {
        const bool has_level = line.kind >= Kind::isobar && line.kind <= Kind::isentrope;
        if (!has_level) return line.label;
        const charts::Unit& unit = view_.unit_of(look_of(line.kind).quantity);
        const std::string text = charts::number(unit.shown(line.level));
        return unit.name.size() <= 3 ? text + " " + unit.name : text;
    }
    // Along the longest part of each line.
    void draw_labels(Labels& labels) {
        const double size = 0.85 * size_;
        for (std::size_t k = 0; k < lines_.size();) {
            std::size_t end = k + 1;
            while (end < lines_.size() && first_of(end) == static_cast<int>(k)) ++end;
            const auto longest = std::max_element(
                lines_.begin() + static_cast<std::ptrdiff_t>(k),
                lines_.begin() + static_cast<std::ptrdiff_t>(end),
                [](const Drawn& a, const Drawn& b) { return extent(a.spots) < extent(b.spots); });
            draw_label(*longest, static_cast<int>(k), size, labels);
            k = end;
        }
    }
    static double extent(const std::vector<Spot>& spots) {
        double out = 0;
        for (std::size_t k = 1; k < spots.size(); ++k)
            out += std::hypot(spots[k].x - spots[k - 1].x, spots[k].y - spots[k - 1].y);
        return out;
    }
    void draw_label(const Drawn& line, int number, double size, Labels& labels) {
        const std::string text = label_of(line);
        if (text.empty()) return;
        const Look& look = look_of(line.kind);
        const double width = width_of({{text}}, size);
        const std::optional<Tilted> at =
            labels.place(line.spots, number, width + 0.6 * size, 1.25 * size, look.preferred);
        if (!at) return;
        const double radians = at->angle * 0.017453292519943295;
        const double down = 0.36 * size;  // from the middle of digits to the base line
        canvas_.text(
            {{{text}},
             {at->centre.x - down * std::sin(radians), at->centre.y + down * std::cos(radians)},
             size,
             colour_of(look),
             Anchor::middle,
             at->angle,
             true,
             "label " + charts::name_of(line.kind)});
    }

    // A cycle ends where it has begun: the point has its number and its name already.
    [[nodiscard]] bool is_met_again(std::size_t k) const {
        return std::any_of(stations_.begin(), stations_.begin() + static_cast<std::ptrdiff_t>(k),
                           [&](const Station& before) {
                               const State &a = before.state, &b = stations_[k].state;
                               return a.p() == b.p() && a.T() == b.T() && a.h() == b.h();
                           });
    }
    // Paths of the process, and numbers beside its points.
    void place_stations(Labels& labels) {
        for (std::size_t k = 0; k < stations_.size(); ++k) {
            const Station& station = stations_[k];
            if (!station.begins) {
                std::vector<Spot> path;
                const State& before = stations_[k - 1].state;
                if (style_.is_straight)
                    path = {spot_of(view_.point_of(before)),
                            spot_of(view_.point_of(station.state))};
                else
                    for (const charts::Point& point : charts::process(view_, before, station.state))
                        path.push_back(spot_of(point));
                labels.avoid(path, -1, 5);
                paths_.push_back(std::move(path));
            }
        }
        for (std::size_t k = 0; k < stations_.size(); ++k) {
            if (is_met_again(k)) continue;
            const Spot at = spot_of(view_.point_of(stations_[k].state));
            numbers_.push_back({std::to_string(k + 1), at});
            labels.take({at, 8 * stroke_, 8 * stroke_, 0});
        }
        for (Number& number : numbers_) place_beside(number, labels);
    }
    // Where it covers least of the paths.
    void place_beside(Number& number, Labels& labels) const {
        const double width = width_of({{number.text}}, size_) + 0.4 * size_, height = 1.2 * size_;
        std::optional<Tilted> best;
        double least = HUGE_VAL;
        for (const auto& [x, y] :
             {std::pair{1, -1}, {-1, -1}, {1, 1}, {-1, 1}, {0, -1}, {0, 1}, {1, 0}, {-1, 0}}) {
            const Tilted label{{number.at.x + x * (width / 2 + 5 * stroke_),
                                number.at.y + y * (height / 2 + 5 * stroke_)},
                               width,
                               height,
                               0};
            if (!labels.is_free(label)) continue;
            const double cost = labels.covered(label, 0);
            if (cost >= least) continue;
            least = cost;
            best = label;
        }
        if (!best) return;
        labels.take(*best);
        number.label = best->centre;
    }
    void draw_process() {
        canvas_.clip(plot_);
        for (const std::vector<Spot>& path : paths_)
            canvas_.line(path, {process_colour_, 2 * stroke_, {}}, "process", "");
        for (const Number& number : numbers_)
            canvas_.dot(number.at, 3.6 * stroke_, process_colour_, number.text);
        canvas_.end_clip();
        for (const Number& number : numbers_)
            if (number.label)
                canvas_.text({{{number.text}},
                              {number.label->x, number.label->y + 0.36 * size_},
                              size_,
                              process_colour_,
                              Anchor::middle,
                              0,
                              true,
                              "label station"});
    }

    void draw_title() {
        canvas_.text({{{title},
                       {named(view_.y.quantity).symbol, true},
                       {","},
                       {named(view_.x.quantity).symbol, true}},
                      {plot_.left, 1.7 * size_},
                      1.15 * size_,
                      ink_});
    }
    void draw_legend() {
        for (const Item& item : items_) {
            double x = item.at.x;
            const double y = plot_.bottom() + 4.9 * size_ + item.at.y;
            if (item.look != nullptr) {
                Pen pen = pen_of(*item.look);
                pen.width = std::max(pen.width, stroke_);
                canvas_.line({{x, y - 0.36 * size_}, {x + 2.2 * size_, y - 0.36 * size_}}, pen, "",
                             "");
                x += 2.7 * size_;
            }
            canvas_.text(
                {item.words, {x, y}, size_, item.look != nullptr ? ink_ : process_colour_});
        }
    }

    Canvas& canvas_;
    View view_;
    const std::vector<Station>& stations_;
    const Style& style_;
    const double size_, stroke_;  // of the text, and of a line of width 1
    const Colour ink_, process_colour_;
    std::array<bool, charts::kinds> shown_{};
    std::vector<Drawn> lines_;
    std::vector<Item> items_;
    std::vector<std::vector<Spot>> paths_;
    std::vector<Number> numbers_;
    Box plot_{};
};

}  // namespace

Colour paper_of(const Style& style) { return style.is_dark ? 0x15181c : 0xffffff; }

std::string title_of(const View& view) {
    return std::string(title) + named(view.y.quantity).symbol + "," + named(view.x.quantity).symbol;
}

void draw(Canvas& canvas, const View& view, const std::vector<Station>& stations,
          const Style& style) {
    Picture(canvas, view, stations, style).draw();
}

}  // namespace vaprix::cli
