// SPDX-License-Identifier: MIT
#include "frame/chandrupatla.hpp"  // first: its arguments would shadow f of vaprix.hpp

#include <cmath>
#include <vector>

#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "wet.hpp"

namespace vaprix::cli {
namespace {

// The temperatures, from low to high, at which wet steam of this quality has the value.
class Search {
public:
    Search(double x, double value, Getter of, Family family)
        : x_(x), value_(value), of_(of), family_(family) {}

    std::vector<double> temperatures() {
        constexpr int pieces = 128;
        std::vector<Residual<double>> at;
        for (int k = 0; k <= pieces; ++k) {
            // closer to each other towards the critical point, where the slopes are infinite
            const double u = 1 - static_cast<double>(k) / pieces;
            at.push_back(residual(k == 0 ? T_min : T_crit - (T_crit - T_min) * u * u * u));
        }
        for (std::size_t k = 1; k < at.size(); ++k) {
            between(at[k - 1], at[k]);
            if (k + 1 < at.size() && is_nearest(at[k - 1], at[k], at[k + 1]))
                across(at[k - 1], at[k], at[k + 1]);
        }
        if (at.back().f == 0) found_.push_back(at.back().x);
        return found_;
    }

private:
    [[nodiscard]] Residual<double> residual(double t) const {
        return {t, (vaprix::of_tx(t, x_, family_).*of_)() - value_};
    }
    void between(const Residual<double>& a, const Residual<double>& b) {
        if (a.f == 0)
            found_.push_back(a.x);
        else if ((a.f < 0) != (b.f < 0) && b.f != 0)
            found_.push_back(
                chandrupatla([this](double t) { return residual(t).f; }, a, b, 1e-16).x);
    }
    static bool is_nearest(const Residual<double>& a, const Residual<double>& b,
                           const Residual<double>& c) {
        return (a.f < 0) == (b.f < 0) && (b.f < 0) == (c.f < 0) && std::abs(b.f) < std::abs(a.f) &&
               std::abs(b.f) <= std::abs(c.f);
    }
    // The line turns between a and c, perhaps beyond the value: thirds of the bracket are left out.
    void across(Residual<double> a, Residual<double> b, Residual<double> c) {
        const Residual<double> from = a, to = c;
        for (int round = 0; round < 80 && (b.f < 0) == (a.f < 0) && b.f != 0; ++round) {
            const Residual<double> left = residual(a.x + (c.x - a.x) / 3);
            const Residual<double> right = residual(c.x - (c.x - a.x) / 3);
            const bool is_left = std::abs(left.f) < std::abs(right.f) || (left.f < 0) != (a.f < 0);
            b = is_left ? left : right;
            (is_left ? c : a) = is_left ? right : left;
        }
        if ((b.f < 0) == (from.f < 0) && b.f != 0) return;
        between(from, b);
        between(b, to);
    }

    const double x_, value_;
    const Getter of_;
    const Family family_;
    std::vector<double> found_;
};

}  // namespace

State wet_of_x(double x, double value, Getter of, Family family, std::size_t which) {
    const State any = vaprix::of_tx(T_min, x, family);
    if (!any) return any;  // there is no such quality
    const std::vector<double> at = Search(x, value, of, family).temperatures();
    if (which < at.size()) return vaprix::of_tx(at[which], x, family);
    bridge::Resolved none{};
    none.code = static_cast<int>(ErrorCode::property_range);
    return State(none);
}

}  // namespace vaprix::cli
