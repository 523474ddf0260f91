// SPDX-License-Identifier: MIT
#include "labels.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace vaprix::cli {
namespace {

double radians(double angle) { return angle * std::numbers::pi / 180; }

// In the directions of the label, from its centre.
Spot seen_from(const Tilted& label, const Spot& spot) {
    const double c = std::cos(radians(label.angle)), s = std::sin(radians(label.angle));
    const double x = spot.x - label.centre.x, y = spot.y - label.centre.y;
    return {c * x + s * y, c * y - s * x};
}

std::array<Spot, 4> corners(const Tilted& label) {
    const double c = std::cos(radians(label.angle)), s = std::sin(radians(label.angle));
    std::array<Spot, 4> out;
    for (std::size_t k = 0; k < 4; ++k) {
        const double x = (k == 0 || k == 3 ? -0.5 : 0.5) * label.width;
        const double y = (k < 2 ? -0.5 : 0.5) * label.height;
        out[k] = {label.centre.x + c * x - s * y, label.centre.y + s * x + c * y};
    }
    return out;
}

// All corners of b are on one side of a.
bool is_beside(const Tilted& a, const Tilted& b) {
    double left = HUGE_VAL, right = -HUGE_VAL, top = HUGE_VAL, bottom = -HUGE_VAL;
    for (const Spot& corner : corners(b)) {
        const Spot at = seen_from(a, corner);
        left = std::min(left, at.x), right = std::max(right, at.x);
        top = std::min(top, at.y), bottom = std::max(bottom, at.y);
    }
    return left > a.width / 2 || right < -a.width / 2 || top > a.height / 2 ||
           bottom < -a.height / 2;
}

// The segment passes through the rectangle (Liang and Barsky, Commun. ACM 27 (1984) 868).
bool crosses(const Tilted& label, const Spot& from, const Spot& to) {
    const Spot a = seen_from(label, from), b = seen_from(label, to);
    double begin = 0, end = 1;
    const auto cut = [&](double at, double by, double half) {
        if (by == 0) return std::abs(at) <= half;
        const double first = (-half - at) / by, second = (half - at) / by;
        begin = std::max(begin, std::min(first, second));
        end = std::min(end, std::max(first, second));
        return begin <= end;
    };
    return cut(a.x, b.x - a.x, label.width / 2) && cut(a.y, b.y - a.y, label.height / 2);
}

// A polyline by its length.
class Measured {
public:
    explicit Measured(const std::vector<Spot>& line) : line_(line), lengths_(line.size()) {
        for (std::size_t k = 1; k < line.size(); ++k)
            lengths_[k] =
                lengths_[k - 1] + std::hypot(line[k].x - line[k - 1].x, line[k].y - line[k - 1].y);
    }
    [[nodiscard]] double length() const { return lengths_.back(); }
    [[nodiscard]] Spot at(double length) const {
        const std::size_t k = after(length);
        const double piece = lengths_[k] - lengths_[k - 1];
        const double t = piece > 0 ? (length - lengths_[k - 1]) / piece : 0;
        return {line_[k - 1].x + t * (line_[k].x - line_[k - 1].x),
                line_[k - 1].y + t * (line_[k].y - line_[k - 1].y)};
    }
    // The label on the chord around a place; none where the line leaves its middle.
    [[nodiscard]] std::optional<Tilted> label(double middle, double width, double height) const {
        const Spot a = at(middle - width / 2), b = at(middle + width / 2);
        if (std::hypot(b.x - a.x, b.y - a.y) < 0.97 * width) return {};
        double angle = std::atan2(b.y - a.y, b.x - a.x) * 180 / std::numbers::pi;
        if (angle > 90) angle -= 180;
        if (angle <= -89.9) angle += 180;  // upwards
        Tilted out{{(a.x + b.x) / 2, (a.y + b.y) / 2}, width, height, angle};
        if (angle > 89.9) out.angle -= 180;
        for (std::size_t k = after(middle - width / 2); lengths_[k] < middle + width / 2; ++k)
            if (std::abs(seen_from(out, line_[k]).y) > 0.15 * height) return {};
        return out;
    }

private:
    [[nodiscard]] std::size_t after(double length) const {
        const auto found = std::lower_bound(lengths_.begin() + 1, lengths_.end() - 1, length);
        return static_cast<std::size_t>(found - lengths_.begin());
    }
    const std::vector<Spot>& line_;
    std::vector<double> lengths_;
};

}  // namespace

void Labels::avoid(const std::vector<Spot>& line, int number, double weight) {
    for (std::size_t k = 1; k < line.size(); ++k)
        avoided_.push_back({line[k - 1], line[k], number, weight});
}

bool Labels::is_free(const Tilted& label) const {
    for (const Spot& corner : corners(label))
        if (corner.x < plot_.left || corner.x > plot_.right() || corner.y < plot_.top ||
            corner.y > plot_.bottom())
            return false;
    return std::all_of(taken_.begin(), taken_.end(), [&](const Tilted& other) {
        return is_beside(label, other) || is_beside(other, label);
    });
}

double Labels::covered(const Tilted& label, int number) const {
    const double reach = std::hypot(label.width, label.height) / 2;
    double out = 0;
    for (const Avoided& avoided : avoided_) {
        const auto is_far = [&](double from, double to, double centre) {
            return std::min(from, to) > centre + reach || std::max(from, to) < centre - reach;
        };
        if (avoided.number != number && !is_far(avoided.from.x, avoided.to.x, label.centre.x) &&
            !is_far(avoided.from.y, avoided.to.y, label.centre.y) &&
            crosses(label, avoided.from, avoided.to))
            out += avoided.weight;
    }
    return out;
}

std::optional<Tilted> Labels::place(const std::vector<Spot>& line, int number, double width,
                                    double height, double preferred) {
    constexpr double most_covered = 8;
    if (line.size() < 2) return {};
    const Measured measured(line);
    const double margin = width / 2 + height / 2, room = measured.length() - 2 * margin;
    if (!(room > 0)) return {};
    std::optional<Tilted> best;
    double least = most_covered;
    const int tries = std::min(60, static_cast<int>(2 + room / (height / 2)));
    for (int k = 0; k <= tries; ++k) {
        const double along = static_cast<double>(k) / tries;
        const std::optional<Tilted> label = measured.label(margin + along * room, width, height);
        if (!label || !is_free(*label)) continue;
        const double cost = covered(*label, number) + 5 * std::abs(along - preferred);
        if (cost < least) {
            least = cost;
            best = label;
        }
    }
    if (best) take(*best);
    return best;
}

}  // namespace vaprix::cli
