// SPDX-License-Identifier: MIT
//
// Lines of a table and their cells: how they are separated, what numbers look like, where the header is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vaprix::cli {

struct Dialect {
    char separator = ',';
    bool decimal_comma = false;
};

// A line without its end, which is "\n", "\r\n", or nothing at the end of the file.
struct Line {
    std::string_view text, end;
    [[nodiscard]] bool is_passed_through() const noexcept;  // blank, or a comment: # first
};
Line take_line(std::string_view& rest) noexcept;

// Up to the next separator, quotes included; `rest` begins with the separator after it, or is empty.
std::string_view take_cell(std::string_view& rest, char separator) noexcept;

// Without quotes and blanks around it.
std::string_view bare_cell(std::string_view cell) noexcept;
std::vector<std::string> cells_of(std::string_view line, char separator);

// A cell that is a finite number and nothing else; false if it is not.
bool read_number(std::string_view cell, bool decimal_comma, double& value) noexcept;

// The most frequent of tab, semicolon, comma and | in a line, outside quotes.
char guess_separator(std::string_view line) noexcept;

// A column as the top of the file names it: "T [C]", "T (C)", "T/C", or "T" over a row of units.
struct Column {
    std::string name, unit;
};

// The lines before the rows, and what they tell.
struct Top {
    std::vector<Column> columns;  // named only under a header
    bool has_header = false, has_units = false;
    bool units_in_names = false;  // "T [C]" and the like
};
Top read_top(const std::vector<std::string>& first, const std::vector<std::string>& second,
             int has_header);

}  // namespace vaprix::cli
