// SPDX-License-Identifier: MIT
//
// What cli.py makes of the catalogue of exports: names, texts, units, and how each is called over arrays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vaprix.hpp>

#include "operand.hpp"

namespace vaprix::cli {

// A result that is a failure, the code that is stored with it or 0, and the reason in words.
struct Refusal {
    double value;
    int code;
    std::string_view reason;
};

struct Export {
    std::string_view name, arguments, unit, description;  // arguments with blanks between
    std::string_view title, range, failure, note, source, example;
    std::span<const Refusal> refusals;
    void (*over)(std::size_t count, const Operand* at, std::int32_t* code);
};
extern const std::span<const Export> exports;

// A unit, or the same with other spellings: a value of it is (value + plus) * times / per in `of`, a unit of the
// catalogue.
struct Unit {
    std::string_view of, name, also;
    double plus, times, per;
};
extern const std::span<const Unit> units;

// An argument of exports.
struct Variable {
    std::string_view name, meaning, unit;
};
extern const std::span<const Variable> variables;

// A property of a state, in the order in which they are shown.
struct Property {
    std::string_view symbol, quantity, unit;
    double (*of)(const State&);
};
extern const std::span<const Property> properties;
constexpr double wavelength_of_n = 0.5893;  // micrometres, yellow sodium light

// The export that answers a property by two state variables, or a temperature by a pressure.
struct Reading {
    std::string_view symbol, family, arguments;
    const Export* by;
};
extern const std::span<const Reading> readings;

struct Code {
    int code;
    std::string_view meaning;
};
extern const std::span<const Code> codes;

extern const double p_crit, T_crit, T_min;  // MPa, K

}  // namespace vaprix::cli
