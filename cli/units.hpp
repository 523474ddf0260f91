// SPDX-License-Identifier: MIT
//
// Numbers with units, as people write and read them.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tables.hpp"

namespace vaprix::cli {

// What cannot be done as it was asked for: the command ends with status 2.
struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// To and from the catalogue's unit.
inline double to_base(const Unit& unit, double value) noexcept {
    return (value + unit.plus) * unit.times / unit.per;
}
inline double from_base(const Unit& unit, double value) noexcept {
    return value * unit.per / unit.times - unit.plus;
}

// A unit of the same kind as `of`, by any of its spellings; blanks, brackets, dots and hyphens do not matter. Null if
// there is none.
const Unit* find_unit(std::string_view of, std::string_view spelling);
// What find_unit() knows, in words.
std::string known_units(std::string_view of);

// A finite number at the beginning of the text, which loses it.
std::optional<double> take_number(std::string_view& text) noexcept;

// "15MPa", "600 C" or "15" in the catalogue's unit `of`; unit is set to what was written.
double parse_quantity(std::string_view text, std::string_view of, const Unit*& unit);

std::string_view trimmed(std::string_view text) noexcept;

// The shortest digits that read back as the same number.
std::string shortest(double value);
// Significant digits, without trailing zeros: fixed where that is short, else with an exponent.
std::string rounded(double value, int digits);

// The units that the user wants, for each unit of the catalogue; the catalogue's own where none was named.
class Wanted {
public:
    Wanted() = default;
    explicit Wanted(const std::vector<std::string>& names);  // such as "bar" and "C"
    void add(const Unit& unit);                              // unless another one was named before
    [[nodiscard]] const Unit& of(std::string_view base) const;

private:
    std::vector<const Unit*> units_;
};

}  // namespace vaprix::cli
