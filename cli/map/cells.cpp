// SPDX-License-Identifier: MIT
#include "cells.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "units.hpp"

namespace vaprix::cli {
namespace {

const Unit* any_unit(std::string_view spelling) {
    for (const Unit& unit : units)
        if (const Unit* found = find_unit(unit.of, spelling)) return found;
    return nullptr;
}

bool is_unit_or_none(const std::string& cell) {
    return cell.empty() || cell == "-" || any_unit(cell) != nullptr;
}

bool is_any_number(const std::string& cell) {
    double value;
    return read_number(cell, false, value) || read_number(cell, true, value);
}

// "T [C]" is T in C; a unit that is not known is a part of the name.
Column column_of(const std::string& cell) {
    const std::pair<char, std::string_view> marks[] = {{'[', "]"}, {'(', ")"}, {'/', ""}};
    for (const auto& [open, close] : marks) {
        const std::size_t at = cell.find(open);
        if (at == std::string::npos || at == 0 || !cell.ends_with(close)) continue;
        const std::string unit = cell.substr(at + 1, cell.size() - at - 1 - close.size());
        if (any_unit(unit) != nullptr) return {std::string(trimmed(cell.substr(0, at))), unit};
    }
    return {cell, ""};
}

// Digits with or without a mark. Up to 15 of them are an exact number, as is the power of ten: their quotient is rounded
// once, to the bits of from_chars in a quarter of its time.
bool read_plain_number(std::string_view cell, char mark, double& value) noexcept {
    constexpr std::array<double, 16> power{1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool is_negative = cell.starts_with('-');
    cell.remove_prefix(is_negative ? 1 : 0);
    std::int64_t digits = 0;
    std::size_t before = cell.size();
    if (before > 16) return false;
    for (std::size_t k = 0; k < cell.size(); ++k) {
        const auto digit = static_cast<unsigned char>(cell[k] - '0');
        if (cell[k] == mark && before == cell.size())
            before = k;
        else if (digit > 9)
            return false;
        else
            digits = 10 * digits + digit;
    }
    const std::size_t after = cell.size() - before - (before < cell.size() ? 1 : 0);
    if (before + after == 0 || before + after > 15) return false;
    value = static_cast<double>(is_negative ? -digits : digits) / power[after];
    return digits != 0 || !is_negative;
}

}  // namespace

bool Line::is_passed_through() const noexcept {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos || text[first] == '#';
}

Line take_line(std::string_view& rest) noexcept {
    const std::size_t newline = rest.find('\n');
    const std::size_t next = newline == std::string_view::npos ? rest.size() : newline + 1;
    std::size_t size = std::min(newline, rest.size());
    if (size > 0 && rest[size - 1] == '\r') --size;
    const Line out{rest.substr(0, size), rest.substr(size, next - size)};
    rest.remove_prefix(next);
    return out;
}

std::string_view take_cell(std::string_view& rest, char separator) noexcept {
    std::size_t end = 0;
    if (!rest.empty() &&
        rest[0] == '"')  // to the closing quote; a doubled one is a part of the cell
        for (end = 1; end < rest.size() &&
                      (rest[end] != '"' || (end + 1 < rest.size() && rest[end + 1] == '"'));)
            end += rest[end] == '"' ? 2 : 1;
    end = std::min(rest.find(separator, end), rest.size());
    const std::string_view out = rest.substr(0, end);
    rest.remove_prefix(end);
    return out;
}

std::string_view bare_cell(std::string_view cell) noexcept {
    cell = trimmed(cell);
    if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"')
        cell = trimmed(cell.substr(1, cell.size() - 2));
    return cell;
}

std::vector<std::string> cells_of(std::string_view line, char separator) {
    std::vector<std::string> out;
    for (;;) {
        out.emplace_back(bare_cell(take_cell(line, separator)));
        if (line.empty()) return out;
        line.remove_prefix(1);
    }
}

bool read_number(std::string_view cell, bool decimal_comma, double& value) noexcept {
    cell = bare_cell(cell);
    if (read_plain_number(cell, decimal_comma ? ',' : '.', value)) return true;
    std::array<char, 64> pointed;
    if (decimal_comma) {
        if (cell.size() > pointed.size() || cell.find('.') != std::string_view::npos) return false;
        std::replace_copy(cell.begin(), cell.end(), pointed.begin(), ',', '.');
        cell = {pointed.data(), cell.size()};
    }
    const std::optional<double> number = take_number(cell);
    value = number.value_or(0);
    return number && cell.empty();
}

char guess_separator(std::string_view line) noexcept {
    constexpr std::string_view candidates = "\t;,|";
    std::array<std::size_t, candidates.size()> count{};
    bool quoted = false;
    for (const char c : line) {
        quoted = quoted != (c == '"');
        const std::size_t k = candidates.find(c);
        if (!quoted && k != std::string_view::npos) ++count[k];
    }
    if (count[0] > 0) return candidates[0];  // a comma beside these is rather a decimal one
    if (count[1] > 0) return candidates[1];
    return count[3] > count[2] ? candidates[3] : candidates[2];
}

Top read_top(const std::vector<std::string>& first, const std::vector<std::string>& second,
             int has_header) {
    Top out;
    out.has_header =
        has_header < 0 ? std::none_of(first.begin(), first.end(), is_any_number) : has_header > 0;
    if (!out.has_header) {
        out.columns.resize(first.size());
        return out;
    }
    for (const std::string& cell : first) {
        out.columns.push_back(column_of(cell));
        out.units_in_names = out.units_in_names || !out.columns.back().unit.empty();
    }
    out.has_units = second.size() == first.size() &&
                    std::all_of(second.begin(), second.end(), is_unit_or_none) &&
                    std::any_of(second.begin(), second.end(),
                                [](const std::string& cell) { return any_unit(cell) != nullptr; });
    if (out.has_units)
        for (std::size_t k = 0; k < second.size(); ++k)
            if (second[k] != "-" && !second[k].empty()) out.columns[k].unit = second[k];
    return out;
}

}  // namespace vaprix::cli
