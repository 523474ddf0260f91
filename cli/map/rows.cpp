// SPDX-License-Identifier: MIT
#include "rows.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace vaprix::cli {
namespace {

constexpr std::size_t longest_number = 32;

// For a message: without control characters, and not too long.
std::string shown(std::string_view cell) {
    std::string out;
    for (const char c : cell.substr(0, 30))
        out += static_cast<unsigned char>(c) < ' ' || c == 127 ? '?' : c;
    return "'" + out + (cell.size() > 30 ? "...'" : "'");
}

// Room for `more` characters at the end of a text, which `commit` then takes into it.
class End {
public:
    End(std::vector<char>& text, std::size_t more) : text_(text), size_(text.size()) {
        text.resize(size_ + more);
    }
    [[nodiscard]] char* at() const noexcept { return text_.data() + size_; }
    void commit(const char* end) { text_.resize(static_cast<std::size_t>(end - text_.data())); }

private:
    std::vector<char>& text_;
    std::size_t size_;
};

char* copied(std::string_view text, char* to) noexcept {
    if (!text.empty()) std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

}  // namespace

Rows::Rows(const Plan& plan, int digits, std::size_t most_problems)
    : plan_(plan), digits_(digits), most_problems_(most_problems), evaluation_(plan) {
    rows_.reserve(block_size);
}

// Reads the cells that are asked for; NaN for all of them if one is no number, or if there are too few or too many.
void Rows::read(Row& row, std::size_t k) {
    row.is_row = !row.line.is_passed_through();
    row.is_good = row.is_row;
    row.columns = 1;
    std::string_view rest = row.line.text;
    auto input = plan_.inputs.begin();
    for (std::size_t column = 0; row.is_row; ++column, ++row.columns) {
        const std::string_view cell = take_cell(rest, plan_.dialect.separator);
        if (input != plan_.inputs.end() && input->index == column) {
            double value = 0;
            row.is_good = read_number(cell, plan_.dialect.decimal_comma, value) && row.is_good;
            evaluation_.input(static_cast<std::size_t>(input - plan_.inputs.begin()))[k] = value;
            ++input;
        }
        if (rest.empty()) break;
        rest.remove_prefix(1);
    }
    row.is_good = row.is_good && row.columns == plan_.columns;
    if (!row.is_good)
        for (std::size_t i = 0; i < plan_.inputs.size(); ++i)
            evaluation_.input(i)[k] = std::numeric_limits<double>::quiet_NaN();
}

std::string Rows::what_is_wrong(const Row& row) const {
    if (row.columns != plan_.columns)
        return std::to_string(row.columns) + " cells instead of " + std::to_string(plan_.columns);
    const std::vector<std::string> cells = cells_of(row.line.text, plan_.dialect.separator);
    for (const Input& input : plan_.inputs) {
        const std::string& cell = cells[input.index];
        double value = 0;
        if (cell.empty()) return input.name + " is empty";
        if (!read_number(cell, plan_.dialect.decimal_comma, value))
            return input.name + " is no number: " + shown(cell);
    }
    return "";
}

char* Rows::write_number(char* to, double value) const noexcept {
    char* const end =
        digits_ > 0
            ? std::to_chars(to, to + longest_number, value, std::chars_format::general, digits_).ptr
            : std::to_chars(to, to + longest_number, value).ptr;
    if (plan_.dialect.decimal_comma) std::replace(to, end, '.', ',');
    return end;
}

void Rows::write(const Row& row, std::size_t k, Answered& out) {
    const bool is_quoted = plan_.dialect.decimal_comma && plan_.dialect.separator == ',';
    const std::size_t missing = plan_.columns - std::min(plan_.columns, row.columns);
    End end(out.text, row.line.text.size() + row.line.end.size() + missing +
                          plan_.steps.size() * (longest_number + 3));
    char* to = copied(row.line.text, end.at());
    if (row.is_row) {
        to = std::fill_n(to, missing, plan_.dialect.separator);
        bool is_good = row.is_good;
        for (std::size_t step = 0; step < plan_.steps.size(); ++step) {
            *to++ = plan_.dialect.separator;
            const double value = evaluation_.step(step)[k];
            is_good = is_good && !std::isnan(value);
            if (std::isnan(value)) continue;
            if (is_quoted) *to++ = '"';
            to = write_number(to, from_base(*plan_.steps[step].unit, value));
            if (is_quoted) *to++ = '"';
        }
        ++out.rows;
        if (!is_good) {
            if (out.problems.size() < most_problems_)
                out.problems.push_back(
                    {out.lines, row.is_good ? evaluation_.reason(k) : what_is_wrong(row)});
            ++out.bad_rows;
        }
    }
    end.commit(copied(row.line.end, to));
    ++out.lines;
}

void Rows::answer(std::string_view block, Answered& out) {
    out.text.clear();
    out.problems.clear();
    out.lines = out.rows = out.bad_rows = 0;
    while (!block.empty()) {
        rows_.clear();
        while (!block.empty() && rows_.size() < block_size) {
            rows_.push_back({take_line(block), 0, false, false});
            read(rows_.back(), rows_.size() - 1);
        }
        evaluation_.run(rows_.size());
        for (std::size_t k = 0; k < rows_.size(); ++k) write(rows_[k], k, out);
    }
}

}  // namespace vaprix::cli
