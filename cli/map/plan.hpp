// SPDX-License-Identifier: MIT
//
// What map does with a row: which of its cells it reads, and how the added ones follow from them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "cells.hpp"
#include "exports.hpp"
#include "formula.hpp"
#include "states.hpp"
#include "units.hpp"

namespace vaprix::cli {

// A column that is read, in increasing order of index.
struct Input {
    std::size_t index;
    std::string name;
    const Unit* unit;  // null until a formula tells
};

// An added column: an export, or a property of a state.
struct Step {
    std::string name;  // of the column
    const Unit* unit = nullptr;
    const Export* by = nullptr;
    Pair pair{nullptr, false};
    const Property* property = nullptr;
    Family family = Family::O;
    struct Argument {
        enum class From { input, step, constant } from;
        std::size_t index;  // of the input or the step
        double value;       // of the constant, in the catalogue's unit
    };
    std::vector<Argument> arguments;
};

struct Plan {
    Dialect dialect;
    std::size_t columns = 0;
    std::vector<Input> inputs;
    std::vector<Step> steps;
};

struct Asked {
    std::vector<Formula> formulas;
    std::vector<NamedUnit> units;
    std::string family;
};

// Throws Error for what the file or the catalogue does not have.
Plan planned(const Asked& asked, const Top& top);

// Some rows at once: values of inputs, then results of steps, all in the catalogue's units, NaN where there is none.
class Evaluation {
public:
    explicit Evaluation(const Plan& plan);
    [[nodiscard]] double* input(std::size_t k) noexcept { return values_[k].data(); }
    [[nodiscard]] const double* step(std::size_t k) const noexcept {
        return values_[plan_.inputs.size() + k].data();
    }
    void run(std::size_t count);

    // Why the first step without a result has none, for a row whose inputs are all there; empty if all have one.
    [[nodiscard]] std::string reason(std::size_t row) const;

private:
    using Values = std::array<double, block_size>;

    const Plan& plan_;
    std::vector<Values> values_, constants_;
    std::vector<const double*> arguments_;
};

}  // namespace vaprix::cli
