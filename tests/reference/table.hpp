// SPDX-License-Identifier: MIT
// Tables of text with one header line, as they were printed: cells stay text until they are used.
#pragma once

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "number.hpp"
#include "split.hpp"

namespace published {

struct Table {
    Texts columns;
    std::vector<Texts> rows;

    bool has(const std::string& name) const {
        return std::find(columns.begin(), columns.end(), name) != columns.end();
    }
    const std::string& cell(std::size_t row, const std::string& name) const {
        if (!has(name)) throw std::out_of_range("no column " + name);
        const auto found = std::find(columns.begin(), columns.end(), name);
        return rows[row][static_cast<std::size_t>(found - columns.begin())];
    }
    double number(std::size_t row, const std::string& name) const {
        return std::stod(cell(row, name));
    }
};

// Reads a table; throws when it is missing or a row has a wrong width.
inline Table read_file(const std::string& path) {
    std::ifstream file(path);
    Table table;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') continue;
        Texts cells = split(line, ',');
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

// A published table, e.g. "if97/t02_region1.csv".
inline Table read_table(const std::string& path) {
    return read_file(std::string(VAPRIX_PUBLISHED) + "/" + path);
}

}  // namespace published
