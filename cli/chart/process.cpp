// SPDX-License-Identifier: MIT
#include "process.hpp"

#include <algorithm>

#include "commands.hpp"
#include "exports.hpp"
#include "map/cells.hpp"
#include "map/files.hpp"
#include "states.hpp"
#include "units.hpp"

namespace vaprix::cli {
namespace {

// A column that gives a variable of the state.
struct Given {
    std::size_t index;
    const Variable* variable;
    const Unit* unit;
};

class Reader {
public:
    explicit Reader(const std::string& file) : file_(file) {}

    Process read() {
        const std::string text = whole();
        std::string_view rest = text;
        std::size_t number = 0;
        while (!rest.empty()) {
            const Line line = take_line(rest);
            ++number;
            if (trimmed(line.text).empty())
                begins_ = true;
            else if (!line.is_passed_through())
                take(line.text, number, rest);
        }
        if (columns_ == 0) throw Error(file_ + ": there is no table");
        return std::move(out_);
    }

private:
    [[nodiscard]] std::string whole() const {
        const File file = File::to_read(file_);
        std::string out;
        std::vector<char> block;
        for (Lines lines(file); lines.next(block);) out.append(block.begin(), block.end());
        return out;
    }
    void take(std::string_view line, std::size_t number, std::string_view rest) {
        if (columns_ == 0) {
            begin(line, rest);
            return;
        }
        const std::vector<std::string> cells = cells_of(line, separator_);
        if (is_unit_row_) {
            is_unit_row_ = false;
            return;
        }
        ++out_.rows;
        try {
            add(cells);
        } catch (const Error& error) {
            ++out_.bad_rows;
            begins_ = true;
            complain(file_ + ": line " + std::to_string(number) + ": " + error.what());
        }
    }
    void begin(std::string_view line, std::string_view rest) {
        separator_ = guess_separator(line);
        Line second = take_line(rest);
        while (!rest.empty() && second.is_passed_through()) second = take_line(rest);
        const Top top = read_top(cells_of(line, separator_), cells_of(second.text, separator_), 1);
        columns_ = top.columns.size();
        is_unit_row_ = top.has_units;
        for (std::size_t k = 0; k < columns_; ++k) {
            const Column& column = top.columns[k];
            const auto variable =
                std::find_if(variables.begin(), variables.end(), [&](const Variable& known) {
                    return known.name.size() == 1 && known.name == column.name;
                });
            if (variable == variables.end()) {
                if (name_ == none) name_ = k;
                continue;
            }
            const Unit* const unit =
                find_unit(variable->unit, column.unit.empty() ? variable->unit : column.unit);
            if (unit == nullptr)
                throw Error(file_ + ": " + column.name + ": no unit '" + column.unit +
                            "' here; there are: " + known_units(variable->unit));
            given_.push_back({k, &*variable, unit});
        }
        if (given_.size() < 2)
            throw Error(file_ + ": the header names no two of p, T, v, d, h, s, x");
    }
    void add(const std::vector<std::string>& cells) {
        if (cells.size() != columns_)
            throw Error(std::to_string(cells.size()) + " cells instead of " +
                        std::to_string(columns_));
        std::vector<const Variable*> variables_here;
        std::vector<double> values;
        for (const Given& column : given_) {
            const std::string& cell = cells[column.index];
            if (cell.empty() || values.size() == 2) continue;
            double value = 0;
            if (!read_number(cell, false, value) && !read_number(cell, true, value))
                throw Error(std::string(column.variable->name) + " is no number: '" + cell + "'");
            variables_here.push_back(column.variable);
            values.push_back(to_base(*column.unit, value));
        }
        if (values.size() < 2) throw Error("a state takes two variables");
        const Pair pair = pair_of(variables_here[0]->name, variables_here[1]->name);
        const std::size_t first = pair.swapped ? 1 : 0;
        const State state = pair.of(values[first], values[1 - first], Family::O);
        if (!state)
            throw Error(meaning_of(state.code()) + " (code " + std::to_string(state.code()) + ")");
        out_.stations.push_back({state, name_ == none ? "" : cells[name_], begins_});
        begins_ = false;
    }

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    const std::string file_;
    Process out_;
    char separator_ = ',';
    std::size_t columns_ = 0, name_ = none;
    std::vector<Given> given_;
    bool is_unit_row_ = false, begins_ = true;
};

}  // namespace

Process read_process(const std::string& file) { return Reader(file).read(); }

}  // namespace vaprix::cli
