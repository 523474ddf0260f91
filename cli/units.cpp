// SPDX-License-Identifier: MIT
#include "units.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vaprix::cli {
namespace {

std::string bare(std::string_view spelling) {
    std::string out;
    for (const char c : spelling)
        if (std::string_view(" \t()*.-").find(c) == std::string_view::npos) out += c;
    return out;
}

bool is_spelled(const Unit& unit, const std::string& wanted) {
    if (bare(unit.name) == wanted) return true;
    std::string_view rest = unit.also;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (bare(rest.substr(0, end)) == wanted) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

}  // namespace

const Unit* find_unit(std::string_view of, std::string_view spelling) {
    const std::string wanted = bare(spelling);
    const auto found = std::find_if(units.begin(), units.end(), [&](const Unit& unit) {
        return unit.of == of && is_spelled(unit, wanted);
    });
    return found == units.end() ? nullptr : &*found;
}

std::string known_units(std::string_view of) {
    std::string out;
    for (const Unit& unit : units)
        if (unit.of == of) out += (out.empty() ? "" : ", ") + std::string(unit.name);
    return out.empty() ? "none" : out;
}

std::string_view trimmed(std::string_view text) noexcept {
    constexpr std::string_view blank = " \t\r";
    const std::size_t first = text.find_first_not_of(blank);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blank) - first + 1);
}

std::optional<double> take_number(std::string_view& text) noexcept {
    const char* begin = text.data();
    const char* const end = begin + text.size();
    if (begin != end && *begin == '+' && begin + 1 != end && begin[1] != '-') ++begin;
    double value = 0;
    const auto [rest, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || !std::isfinite(value)) return {};
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return value;
}

double parse_quantity(std::string_view text, std::string_view of, const Unit*& unit) {
    std::string_view rest = trimmed(text);
    const std::optional<double> value = take_number(rest);
    if (!value) throw Error("'" + std::string(text) + "' does not begin with a number");
    rest = trimmed(rest);
    const Unit* const found = find_unit(of, rest.empty() ? of : rest);
    if (found == nullptr && !rest.empty())
        throw Error("no unit '" + std::string(rest) + "' here; there are: " + known_units(of));
    unit = found;
    return found == nullptr ? *value : to_base(*found, *value);
}

std::string shortest(double value) {
    std::array<char, 40> text;
    const auto end = std::to_chars(text.begin(), text.end(), value).ptr;
    return {text.begin(), end};
}

std::string rounded(double value, int digits) {
    const double size = std::abs(value);
    const bool plain = size == 0 || (size >= 1e-3 && size < 1e6);
    std::array<char, 60> text;
    const int before = plain && size > 0 ? static_cast<int>(std::floor(std::log10(size))) + 1 : 1;
    const auto end = std::to_chars(text.begin(), text.end(), value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific,
                                   plain ? std::max(0, digits - before) : digits - 1)
                         .ptr;
    std::string out(text.begin(), end);
    const std::string exponent = out.substr(std::min(out.find('e'), out.size()));
    out.resize(out.size() - exponent.size());
    if (out.find('.') != std::string::npos) {
        out.resize(out.find_last_not_of('0') + 1);
        if (out.back() == '.') out.pop_back();
    }
    return (out == "-0" ? "0" : out) + exponent;
}

Wanted::Wanted(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const std::size_t before = units_.size();
        const std::string wanted = bare(name);
        for (const Unit& unit : units)
            if (is_spelled(unit, wanted)) add(unit);
        if (units_.size() == before) throw Error("no unit '" + name + "'");
    }
}

void Wanted::add(const Unit& unit) {
    const bool named = std::any_of(units_.begin(), units_.end(),
                                   [&](const Unit* other) { return other->of == unit.of; });
    if (!named) units_.push_back(&unit);
}

const Unit& Wanted::of(std::string_view base) const {
    static constexpr Unit plain{"", "", "", 0, 1, 1};
    const auto found = std::find_if(units_.begin(), units_.end(),
                                    [&](const Unit* unit) { return unit->of == base; });
    if (found != units_.end()) return **found;
    const Unit* const own = find_unit(base, base);
    return own == nullptr ? plain : *own;
}

}  // namespace vaprix::cli
