// SPDX-License-Identifier: MIT
#include "plan.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vaprix::cli {
namespace {

bool is_state_variable(const Variable& variable) { return variable.name.size() == 1; }

bool equal_but_case(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

class Planner {
public:
    Planner(const Asked& asked, const Top& top) : asked_(asked), top_(top) {
        plan_.columns = top.columns.size();
    }

    Plan made() {
        for (const NamedUnit& named : asked_.units) {
            if (named.column)
                unit_of_column(column_of(*named.column)) = named.unit;
            else
                for_results_.push_back(named.unit);
        }
        wanted_ = Wanted(for_results_);
        for (const Formula& formula : asked_.formulas) add(formula);
        // cells are read from left to right
        std::vector<std::size_t> order(plan_.inputs.size());
        for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return plan_.inputs[a].index < plan_.inputs[b].index;
        });
        std::vector<Input> sorted;
        std::vector<std::size_t> place(order.size());
        for (std::size_t k = 0; k < order.size(); ++k) {
            place[order[k]] = k;
            sorted.push_back(plan_.inputs[order[k]]);
        }
        plan_.inputs = std::move(sorted);
        for (Step& step : plan_.steps)
            for (Step::Argument& argument : step.arguments)
                if (argument.from == Step::Argument::From::input)
                    argument.index = place[argument.index];
        return std::move(plan_);
    }

private:
    [[nodiscard]] std::size_t column_of(const Source& source) const {
        if (source.number > 0) {
            if (source.number > plan_.columns)
                throw Error("no column #" + std::to_string(source.number) + ", there are " +
                            std::to_string(plan_.columns));
            return source.number - 1;
        }
        const auto is_named = [&](const Column& column) { return column.name == source.column; };
        const auto found = std::find_if(top_.columns.begin(), top_.columns.end(), is_named);
        if (found == top_.columns.end() || source.column.empty())
            throw Error(no_column(source.column));
        if (std::find_if(found + 1, top_.columns.end(), is_named) != top_.columns.end())
            throw Error("several columns are named '" + source.column +
                        "'; take one by its number, #1, #2 ...");
        return static_cast<std::size_t>(found - top_.columns.begin());
    }
    [[nodiscard]] std::string no_column(const std::string& name) const {
        if (!top_.has_header)
            return "no column '" + name + "': there is no header; columns are #1 to #" +
                   std::to_string(plan_.columns);
        std::string names;
        for (const Column& column : top_.columns)
            names += (names.empty() ? "" : ", ") + column.name;
        return "no column '" + name + "'; there are: " + names;
    }
    std::string& unit_of_column(std::size_t index) {
        if (units_.size() <= index) units_.resize(plan_.columns);
        return units_[index];
    }
    [[nodiscard]] std::size_t step_named(const std::string& name) const {
        const auto found = std::find_if(plan_.steps.begin(), plan_.steps.end(),
                                        [&](const Step& step) { return step.name == name; });
        return static_cast<std::size_t>(found - plan_.steps.begin());
    }
    // The unit that is said of a source, here or elsewhere.
    std::string said_unit(const Source& source) {
        if (source.constant || is_step(source)) return source.unit;
        const std::size_t index = column_of(source);
        std::string& before = unit_of_column(index);
        if (!source.unit.empty() && !before.empty() && before != source.unit)
            throw Error("column " + source.text() + " is in " + before + " and in " + source.unit);
        if (!source.unit.empty()) before = source.unit;
        return before.empty() ? top_.columns[index].unit : before;
    }
    [[nodiscard]] bool is_step(const Source& source) const {
        return !source.column.empty() && step_named(source.column) < plan_.steps.size();
    }

    // Which variable a source is: what it is said to be, else its name, else its unit.
    const Variable& variable_of(const Source& source) {
        const std::string& name = source.variable.empty() ? source.column : source.variable;
        for (const Variable& variable : variables)
            if (is_state_variable(variable) && equal_but_case(variable.name, name)) return variable;
        if (!source.variable.empty())
            throw Error("'" + source.variable + "' is none of p, T, v, d, h, s, x");
        const std::string unit = said_unit(source);
        for (const Variable& variable : variables)
            if (is_state_variable(variable) && !unit.empty() &&
                find_unit(variable.unit, unit) != nullptr)
                return variable;
        throw Error("what is " + source.text() + "? Write p=" + source.text() +
                    ", T=" + source.text() + " or the like");
    }

    Step::Argument argument_of(const Source& source, const Variable& variable) {
        const std::string said = said_unit(source);
        const std::string_view base = variable.unit;
        const Unit* const unit =
            &(said.empty() ? Wanted().of(base) : unit_named(base, said, source));
        using From = Step::Argument::From;
        if (source.constant) return {From::constant, 0, to_base(*unit, *source.constant)};
        if (is_step(source)) {
            if (!said.empty())
                throw Error("the unit of " + source.column + " is told where it is added");
            return {From::step, step_named(source.column), 0};
        }
        const std::size_t index = column_of(source);
        const auto found = std::find_if(plan_.inputs.begin(), plan_.inputs.end(),
                                        [&](const Input& input) { return input.index == index; });
        const auto k = static_cast<std::size_t>(found - plan_.inputs.begin());
        if (found == plan_.inputs.end())
            plan_.inputs.push_back({index, source.text(), unit});
        else if (found->unit != unit)
            throw Error("column " + source.text() + " is read in " +
                        std::string(found->unit->name) + " and in " + std::string(unit->name));
        return {From::input, k, 0};
    }
    static const Unit& unit_named(std::string_view base, const std::string& said,
                                  const Source& source) {
        if (const Unit* const unit = find_unit(base, said)) return *unit;
        throw Error(source.text() + ": no unit '" + said +
                    "' here; there are: " + known_units(base));
    }

    void add(const Formula& formula) {
        if (is_taken(formula.name)) throw Error("there is a column '" + formula.name + "' already");
        Step step;
        step.name = formula.name;
        step.family = family_of(asked_.family);
        step.by = find_export(formula.function);
        std::string_view base;
        if (step.by != nullptr) {
            base = step.by->unit;
            by_export(formula, step);
        } else {
            base = by_state(formula, step).unit;
        }
        step.unit = formula.unit.empty() ? &wanted_.of(base) : find_unit(base, formula.unit);
        if (step.unit == nullptr)
            throw Error(formula.name + ": no unit '" + formula.unit +
                        "' here; there are: " + known_units(base));
        plan_.steps.push_back(std::move(step));
    }
    [[nodiscard]] bool is_taken(const std::string& name) const {
        return step_named(name) < plan_.steps.size() ||
               std::any_of(top_.columns.begin(), top_.columns.end(),
                           [&](const Column& column) { return column.name == name; });
    }
    void by_export(const Formula& formula, Step& step) {
        const std::vector<std::string_view> names = words_of(step.by->arguments);
        if (names.size() != formula.sources.size() || names.empty())
            throw Error(formula.function + " takes " + std::string(step.by->arguments));
        for (std::size_t k = 0; k < names.size(); ++k)
            step.arguments.push_back(argument_of(formula.sources[k], variable_named(names[k])));
    }
    // By the export that answers it, else by the state itself.
    const Property& by_state(const Formula& formula, Step& step) {
        const auto property =
            std::find_if(properties.begin(), properties.end(),
                         [&](const Property& known) { return known.symbol == formula.function; });
        if (property == properties.end())
            throw Error("no property or function '" + formula.function +
                        "'; vaprix state shows the ones, "
                        "vaprix list the others");
        step.property = &*property;
        std::vector<std::string_view> names;
        for (const Source& source : formula.sources) names.push_back(variable_of(source).name);
        for (const Reading& reading : readings) {
            const std::vector<std::string_view> order = words_of(reading.arguments);
            if (reading.symbol != property->symbol || reading.family != asked_.family ||
                !std::is_permutation(order.begin(), order.end(), names.begin(), names.end()))
                continue;
            step.by = reading.by;
            for (const std::string_view name : order)
                step.arguments.push_back(
                    argument_of(source_of(name, names, formula), variable_named(name)));
            return *property;
        }
        if (names.size() != 2) throw Error(formula.name + ": a state takes two variables");
        step.pair = pair_of(names[0], names[1]);
        for (const std::string_view name :
             {names[step.pair.swapped ? 1 : 0], names[step.pair.swapped ? 0 : 1]})
            step.arguments.push_back(
                argument_of(source_of(name, names, formula), variable_named(name)));
        return *property;
    }
    static const Source& source_of(std::string_view name,
                                   const std::vector<std::string_view>& names,
                                   const Formula& formula) {
        return formula.sources[static_cast<std::size_t>(
            std::find(names.begin(), names.end(), name) - names.begin())];
    }

    const Asked& asked_;
    const Top& top_;
    Plan plan_;
    Wanted wanted_;
    std::vector<std::string> for_results_, units_;
};

constexpr double no_value = std::numeric_limits<double>::quiet_NaN();

}  // namespace

Plan planned(const Asked& asked, const Top& top) { return Planner(asked, top).made(); }

Evaluation::Evaluation(const Plan& plan)
    : plan_(plan), values_(plan.inputs.size() + plan.steps.size()) {
    std::size_t constants = 0;
    for (const Step& step : plan.steps)
        for (const Step::Argument& argument : step.arguments)
            constants += argument.from == Step::Argument::From::constant ? 1 : 0;
    constants_.reserve(constants);  // they are pointed at
    for (const Step& step : plan.steps) {
        for (const Step::Argument& argument : step.arguments) {
            if (argument.from == Step::Argument::From::constant) {
                constants_.emplace_back().fill(argument.value);
                arguments_.push_back(constants_.back().data());
            } else {
                const bool is_input = argument.from == Step::Argument::From::input;
                arguments_.push_back(
                    values_[argument.index + (is_input ? 0 : plan.inputs.size())].data());
            }
        }
    }
}

void Evaluation::run(std::size_t count) {
    for (std::size_t k = 0; k < plan_.inputs.size(); ++k) {
        const Unit unit = *plan_.inputs[k].unit;
        std::transform(input(k), input(k) + count, input(k),
                       [&](double value) { return to_base(unit, value); });
    }
    const double* const* at = arguments_.data();
    for (std::size_t k = 0; k < plan_.steps.size(); ++k) {
        const Step& step = plan_.steps[k];
        double* const result = values_[plan_.inputs.size() + k].data();
        if (step.by != nullptr) {
            evaluate(*step.by, count, at, result, nullptr);
            std::transform(result, result + count, result, [&](double value) {
                return is_failure(*step.by, value) ? no_value : value;
            });
        } else {
            for (std::size_t row = 0; row < count; ++row)
                result[row] = step.property->of(step.pair.of(at[0][row], at[1][row], step.family));
        }
        at += step.arguments.size();
    }
}

std::string Evaluation::reason(std::size_t row) const {
    const double* const* at = arguments_.data();
    for (std::size_t k = 0; k < plan_.steps.size(); at += plan_.steps[k++].arguments.size()) {
        if (!std::isnan(this->step(k)[row])) continue;
        const Step& step = plan_.steps[k];
        if (step.by == nullptr) {
            const State state = step.pair.of(at[0][row], at[1][row], step.family);
            return step.name + ": " +
                   (state ? "no such property of " + std::string(phase_of(state))
                          : meaning_of(state.code()) + " (code " + std::to_string(state.code()) +
                                ")");
        }
        std::array<const double*, most_arguments> alone{};
        for (std::size_t a = 0; a < step.arguments.size(); ++a) alone[a] = at[a] + row;
        double result = 0;
        std::int32_t code = 0;
        evaluate(*step.by, 1, alone.data(), &result, &code);
        return step.name + ": " + failure_of(*step.by, result, code).value_or("no value there");
    }
    return "";
}

}  // namespace vaprix::cli
