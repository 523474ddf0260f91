// SPDX-License-Identifier: MIT
#include "levels.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vaprix::charts {
namespace {

constexpr double rounding = 1e-9;  // of a step, by which a level may be outside

// Multiples of the least step of 1, 2 or 5 times a power of ten that has no more than `count` of them.
std::vector<double> linear(double low, double high, std::size_t count) {
    std::vector<double> out;
    if (!(high > low)) return out;
    const double least = (high - low) / static_cast<double>(count);
    const double power = std::pow(10, std::floor(std::log10(least)));
    double step = 10 * power;
    for (const double factor : {1, 2, 5}) {
        if (factor * power >= least) {
            step = factor * power;
            break;
        }
    }
    const double first = std::ceil(low / step - rounding);
    const auto steps = static_cast<int>(std::floor(high / step + rounding) - first);
    for (int k = 0; k <= steps; ++k) out.push_back((first + k) * step);
    return out;
}

std::vector<double> decades(double low, double high, const std::vector<double>& factors) {
    std::vector<double> out;
    const int last = static_cast<int>(std::floor(std::log10(high) + rounding));
    for (int k = static_cast<int>(std::floor(std::log10(low) - rounding)); k <= last; ++k) {
        for (const double factor : factors) {
            const double value = k < 0 ? factor / std::pow(10, -k) : factor * std::pow(10, k);
            if (value >= low * (1 - rounding) && value <= high * (1 + rounding))
                out.push_back(value);
        }
    }
    return out;
}

}  // namespace

std::vector<double> levels(double low, double high, bool logarithmic, const Unit& unit,
                           std::size_t count) {
    const double from = unit.shown(low), to = unit.shown(high);
    std::vector<double> out;
    if (logarithmic && from > 0 && to > 5 * from) {
        out = decades(from, to, {1, 2, 5});
        if (out.size() > count) out = decades(from, to, {1});
    } else {
        out = linear(from, to, count);
    }
    for (double& value : out) value = std::clamp(unit.meant(value), low, high);
    return out;
}

std::vector<double> ticks(const Axis& axis, const Unit& unit, std::size_t count) {
    return levels(axis.low, axis.high, axis.logarithmic, unit, count);
}

std::string number(double value) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%.7g", value == 0 ? 0 : value);
    return text.data();
}

}  // namespace vaprix::charts
