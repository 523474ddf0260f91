// SPDX-License-Identifier: MIT
#include "csv.hpp"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace reference {

namespace {

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> cells(1);
    for (const char c : line) {
        if (c == ',')
            cells.emplace_back();
        else if (c != '\r')
            cells.back() += c;
    }
    return cells;
}

}  // namespace

std::size_t Table::column(const std::string& name) const {
    const auto found = std::find(columns.begin(), columns.end(), name);
    if (found == columns.end()) throw std::out_of_range("no column " + name);
    return static_cast<std::size_t>(found - columns.begin());
}

Table read_table(const std::string& path) {
    std::ifstream file(std::string(VAPRIX_PUBLISHED) + "/" + path);
    Table table;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') continue;
        auto cells = split(line);
        if (table.columns.empty()) {
            table.columns = std::move(cells);
        } else {
            if (cells.size() != table.columns.size())
                throw std::runtime_error(path + ": odd row " + line);
            table.rows.push_back(std::move(cells));
        }
    }
    if (table.rows.empty()) throw std::runtime_error(path + ": no rows");
    return table;
}

std::vector<Term> read_terms(const std::string& path) {
    const Table table = read_table(path);
    const auto exponent = [&table](std::size_t row, const char* name) {
        const auto& columns = table.columns;
        if (std::find(columns.begin(), columns.end(), name) == columns.end()) return 0;
        const std::string& cell = table.cell(row, name);
        return cell.empty() ? 0 : std::stoi(cell);
    };
    std::vector<Term> terms;
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        terms.push_back({exponent(row, "I"), exponent(row, "J"), table.quad(row, "n")});
    return terms;
}

}  // namespace reference
