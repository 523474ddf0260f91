// SPDX-License-Identifier: MIT
//
// What a column that map adds is made of, as it is written: "h[kJ/kg] = h(p[bar], T=live[C])".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vaprix::cli {

// A column by its name or, "#2", its number, or a constant.
struct Source {
    std::string column;
    std::size_t number = 0;  // from 1; 0 of none
    std::optional<double> constant;
    std::string variable;  // what it is said to be: p, T ...; empty if nothing was said
    std::string unit;
    [[nodiscard]] std::string text() const;
};

struct Formula {
    std::string name, unit;  // of the column
    std::string function;    // a property or an export
    std::vector<Source> sources;
};

Formula parse_formula(std::string_view text);  // throws Error

// "T=C" or "#2=C": the unit of a column; without an equals sign one for results.
struct NamedUnit {
    std::optional<Source> column;
    std::string unit;
};
NamedUnit parse_named_unit(std::string_view text);

}  // namespace vaprix::cli
