// SPDX-License-Identifier: MIT
//
// Text in columns and paragraphs, for a terminal of 80 columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vaprix::cli {

constexpr std::size_t terminal_width = 80;

struct Table {
    std::vector<std::string> head;  // left out if all are empty
    std::vector<std::vector<std::string>> rows;
};

// Columns of numbers are aligned at the decimal point, others to the left. The last column is left out where a line
// would be longer than that of a terminal.
void print(const Table& table);

// A text that begins in column `indent` and is wrapped there. Line breaks in it are kept.
std::string hanging(std::string_view text, std::size_t indent);

// Characters, of UTF-8, followed by blanks up to a width.
std::string padded(std::string_view text, std::size_t width);

}  // namespace vaprix::cli
