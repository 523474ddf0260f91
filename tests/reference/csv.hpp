// SPDX-License-Identifier: MIT
// The published tables under published as they were printed: cells stay text until they are used.
#pragma once

#include <string>
#include <vector>

#include "quad.hpp"

namespace reference {

struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;

    // Column by name; throws when the table has none of that name.
    std::size_t column(const std::string& name) const;
    const std::string& cell(std::size_t row, const std::string& name) const {
        return rows[row][column(name)];
    }
    Quad quad(std::size_t row, const std::string& name) const {
        return strtoflt128(cell(row, name).c_str(), nullptr);
    }
    double number(std::size_t row, const std::string& name) const {
        return std::stod(cell(row, name));
    }
};

// Reads a table, e.g. "if97/t02_region1.csv"; throws when it is missing or a row has a wrong width.
Table read_table(const std::string& path);

// One term n x^I y^J of a coefficient table; a missing exponent reads as 0.
struct Term {
    int i;
    int j;
    Quad n;
};
std::vector<Term> read_terms(const std::string& path);

}  // namespace reference
