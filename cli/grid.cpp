// SPDX-License-Identifier: MIT
#include "grid.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "layout.hpp"

namespace vaprix::cli {
namespace {

using Cells = std::vector<std::string>;

void print_line(const Cells& cells, const std::string& before, const std::string& between,
                const std::string& after) {
    std::string line = before;
    for (std::size_t k = 0; k < cells.size(); ++k) line += (k > 0 ? between : "") + cells[k];
    line.resize(line.find_last_not_of(' ') + 1);
    std::puts((line + after).c_str());
}

std::string to_the_right(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

void print_text(const Grid& grid) {
    std::vector<Cells> lines(2);
    for (const GridColumn& column : grid.columns) {
        lines[0].push_back(column.title);
        lines[1].emplace_back(column.unit->name);
    }
    for (const auto& row : grid.rows) {
        lines.emplace_back();
        for (std::size_t k = 0; k < row.size(); ++k)
            lines.back().push_back(text_of(grid.columns[k], row[k]));
    }
    std::vector<std::size_t> widths(grid.columns.size());
    for (const Cells& line : lines)
        for (std::size_t k = 0; k < line.size(); ++k)
            widths[k] = std::max(widths[k], line[k].size());
    std::size_t width = 2 * (widths.size() - 1);
    for (const std::size_t w : widths) width += w;
    const std::string between(width > terminal_width ? 1 : 2, ' ');
    if (!grid.groups.empty()) {
        const std::size_t each = (grid.columns.size() - 1) / grid.groups.size();
        Cells titles{std::string(widths[0], ' ')};
        for (std::size_t g = 0; g < grid.groups.size(); ++g) {
            std::size_t all = between.size() * (each - 1);
            for (std::size_t k = 0; k < each; ++k) all += widths[1 + g * each + k];
            titles.push_back(to_the_right(grid.groups[g], all));
        }
        print_line(titles, "", between, "");
    }
    for (Cells& line : lines) {
        for (std::size_t k = 0; k < line.size(); ++k) line[k] = to_the_right(line[k], widths[k]);
        print_line(line, "", between, "");
    }
}

std::string headed(const GridColumn& column, const char* open, const char* close) {
    return column.title + open + std::string(column.unit->name) + close;
}

void print_markdown(const Grid& grid) {
    Cells head, rule;
    const std::size_t each =
        grid.groups.empty() ? 1 : (grid.columns.size() - 1) / grid.groups.size();
    for (std::size_t k = 0; k < grid.columns.size(); ++k) {
        const bool is_grouped = !grid.groups.empty() && k > 0;
        head.push_back(headed(grid.columns[k], ", ", "") +
                       (is_grouped ? " at " + grid.groups[(k - 1) / each] : ""));
        rule.emplace_back("---:");
    }
    print_line(head, "| ", " | ", " |");
    print_line(rule, "| ", " | ", " |");
    for (const auto& row : grid.rows) {
        Cells cells;
        for (std::size_t k = 0; k < row.size(); ++k)
            cells.push_back(text_of(grid.columns[k], row[k]));
        print_line(cells, "| ", " | ", " |");
    }
}

void print_csv(const Grid& grid) {
    Cells head;
    for (const GridColumn& column : grid.columns) head.push_back(headed(column, " [", "]"));
    print_line(head, "", ",", "");
    for (const auto& row : grid.rows) {
        Cells cells;
        for (std::size_t k = 0; k < row.size(); ++k)
            cells.push_back(
                std::isnan(row[k]) ? "" : shortest(from_base(*grid.columns[k].unit, row[k])));
        print_line(cells, "", ",", "");
    }
}

}  // namespace

std::string text_of(const GridColumn& column, double value) {
    if (std::isnan(value)) return "-";
    if (column.places == as_given) return rounded(from_base(*column.unit, value), 7);
    char text[40];
    std::snprintf(text, sizeof text, column.places > 0 ? "%.*f" : "%#.*g", std::abs(column.places),
                  from_base(*column.unit, value));
    // no -0.00 at the triple point, where h' and s' vanish
    const std::string out = text;
    return out.find_first_not_of("-0.") == std::string::npos && out[0] == '-' ? out.substr(1) : out;
}

void print(const Grid& grid, const std::string& format) {
    if (format == "csv")
        print_csv(grid);
    else if (format == "markdown")
        print_markdown(grid);
    else
        print_text(grid);
}

}  // namespace vaprix::cli
