// SPDX-License-Identifier: MIT
#include "trace.hpp"

#include <algorithm>
#include <cmath>

namespace vaprix::charts {
namespace {

// A point of the path, and where it is in the picture.
struct Sample {
    double t;
    int region;  // 0 of no state
    Point point, at;
};

bool is_inside(const Sample& sample) {
    constexpr double rounding = 1e-12;
    const auto within = [](double place) { return place >= -rounding && place <= 1 + rounding; };
    return within(sample.at.x) && within(sample.at.y);
}

// The chord may be seen: the smallest rectangle around it meets the picture.
bool may_be_seen(const Sample& a, const Sample& b) {
    const auto meets = [](double from, double to) {
        return std::max(from, to) >= 0 && std::min(from, to) <= 1;
    };
    return meets(a.at.x, b.at.x) && meets(a.at.y, b.at.y);
}

double distance(const Sample& sample, const Sample& a, const Sample& b) {
    const double along_x = b.at.x - a.at.x, along_y = b.at.y - a.at.y;
    const double from_x = sample.at.x - a.at.x, from_y = sample.at.y - a.at.y;
    const double length = std::hypot(along_x, along_y);
    if (length == 0) return std::hypot(from_x, from_y);
    const double foot = (from_x * along_x + from_y * along_y) / length;
    if (foot < 0 || foot > length) return std::hypot(from_x, from_y);
    return std::abs(along_x * from_y - along_y * from_x) / length;
}

class Tracer {
public:
    Tracer(const View& view, const Path& path, bool is_cut)
        : view_(view), path_(path), is_cut_(is_cut) {}

    std::vector<std::vector<Point>> along(const std::vector<double>& nodes) {
        constexpr int pieces = 24;  // narrower than what a chord could hide
        Sample last = sampled(nodes[0]);
        add(last);
        for (std::size_t node = 1; node < nodes.size(); ++node) {
            const double from = nodes[node - 1], to = nodes[node];
            for (int k = 1; k <= pieces; ++k) {
                const Sample next = sampled(k == pieces ? to : from + (to - from) * k / pieces);
                between(last, next, deepest);
                last = next;
            }
        }
        std::vector<std::vector<Point>> out;
        for (const std::vector<Sample>& run : runs_) {
            if (is_cut_)
                cut(run, out);
            else
                out.push_back(points_of(run));
        }
        return out;
    }

private:
    static constexpr int deepest = 14;

    Sample sampled(double t) const {
        const State state = path_(t);
        const Point point = view_.point_of(state), at = view_.placed(point);
        return {t, std::isfinite(at.x) && std::isfinite(at.y) ? state.region() : 0, point, at};
    }
    // Ends a run where there is no state.
    void add(const Sample& sample) {
        if (sample.region == 0) {
            is_open_ = false;
            return;
        }
        if (!is_open_) runs_.emplace_back();
        is_open_ = true;
        runs_.back().push_back(sample);
    }
    // Adds what follows `a` up to `b`.
    void between(const Sample& a, const Sample& b, int depth) {
        if (a.region != b.region) {
            Sample inner = a, outer = b;
            narrow(inner, outer, [&](const Sample& middle) { return middle.region == a.region; });
            if (inner.t != a.t) between(a, inner, depth);
            add(outer);
            if (outer.t != b.t) between(outer, b, depth);
            return;
        }
        if (a.region != 0 && depth > 0 && (!is_cut_ || may_be_seen(a, b))) {
            const Sample middle = sampled(a.t + (b.t - a.t) / 2);
            const bool may_cross = is_cut_ && !is_inside(a) && !is_inside(b);
            if (may_cross || middle.region != a.region ||
                distance(middle, a, b) > view_.tolerance / 2) {
                between(a, middle, depth - 1);
                between(middle, b, depth - 1);
                return;
            }
        }
        add(b);
    }
    // Halves a..b until nothing is between them, `a` staying where it is like a and b where it is not.
    template <class Alike>
    void narrow(Sample& a, Sample& b, Alike alike) const {
        for (;;) {
            const double t = a.t + (b.t - a.t) / 2;
            if (t == a.t || t == b.t) return;
            const Sample middle = sampled(t);
            (alike(middle) ? a : b) = middle;
        }
    }
    // The parts of a run that are inside the view.
    void cut(const std::vector<Sample>& run, std::vector<std::vector<Point>>& out) const {
        std::vector<Sample> part;
        const auto close = [&] {
            if (part.size() > 1) out.push_back(points_of(part));
            part.clear();
        };
        for (std::size_t k = 0; k < run.size(); ++k) {
            if (k > 0 && is_inside(run[k]) != is_inside(run[k - 1])) {
                Sample inner = run[k - 1], outer = run[k];
                if (!is_inside(inner)) std::swap(inner, outer);
                narrow(inner, outer, is_inside);
                part.push_back(inner);
                if (!is_inside(run[k])) close();
            }
            if (is_inside(run[k])) part.push_back(run[k]);
        }
        close();
    }
    // Without points that coincide.
    static std::vector<Point> points_of(const std::vector<Sample>& run) {
        std::vector<Point> out;
        for (const Sample& sample : run)
            if (out.empty() || sample.point.x != out.back().x || sample.point.y != out.back().y)
                out.push_back(sample.point);
        return out;
    }

    const View& view_;
    const Path& path_;
    const bool is_cut_;
    std::vector<std::vector<Sample>> runs_;
    bool is_open_ = false;
};

}  // namespace

std::vector<std::vector<Point>> traced(const View& view, const Path& path,
                                       const std::vector<double>& nodes, bool is_cut) {
    return Tracer(view, path, is_cut).along(nodes);
}

}  // namespace vaprix::charts
