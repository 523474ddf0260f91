// SPDX-License-Identifier: MIT
//
// vaprix table: steam tables in the classical layout.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

#include "commands.hpp"
#include "grid.hpp"
#include "states.hpp"

namespace vaprix::cli {
namespace {

struct Options {
    std::string by = "T", from, to, step, format = "text", family = "O";
    std::vector<std::string> units, pressures;
};

GridColumn column_of(const std::string& title, std::string_view symbol, const Wanted& wanted) {
    const auto property =
        std::find_if(properties.begin(), properties.end(),
                     [&](const Property& known) { return known.symbol == symbol; });
    const int places = symbol == "s"                    ? 4
                       : symbol == "T" || symbol == "h" ? 2
                       : symbol == "p"                  ? -5
                                                        : -6;
    return {title, &wanted.of(property->unit), places};
}

// From --from to --to by --step, which is in the unit of --from; that is wanted from then on.
std::vector<double> steps_of(const Options& options, std::string_view base, Wanted& wanted) {
    const Unit *unit = nullptr, *other = nullptr;
    const double begin = parse_quantity(options.from, base, unit);
    const double from = from_base(*unit, begin),
                 to = from_base(*unit, parse_quantity(options.to, base, other));
    std::string_view rest = options.step;
    const double step = take_number(rest).value_or(0);
    if (!trimmed(rest).empty() && find_unit(base, rest) != unit)
        throw Error("--step is in the unit of --from, " + std::string(unit->name));
    const double count = std::floor((to - from) / step + 1e-9) + 1;
    if (!(step > 0) || !(count >= 1) || count > 1e6)
        throw Error("--from " + options.from + " --to " + options.to + " --step " + options.step +
                    " is no table of 1 to a million lines");
    wanted.add(*unit);
    std::vector<double> out;
    for (int k = 0; k < static_cast<int>(count); ++k)
        out.push_back(to_base(*unit, from + k * step));
    return out;
}

// Names a state that is not there, with its place.
void complain_of(const State& state, const std::string& where) {
    complain(where + ": " + meaning_of(state.code()) + " (code " + std::to_string(state.code()) +
             ")");
}
std::string in_words(const GridColumn& column, double value) {
    return rounded(from_base(*column.unit, value), 7) + " " + std::string(column.unit->name);
}

int saturation(const Options& options) {
    const bool of_t = options.by == "T";
    Wanted wanted(options.units);
    const std::vector<double> given = steps_of(options, of_t ? "K" : "MPa", wanted);
    const Family family = family_of(options.family);
    Grid grid;
    const std::string other = of_t ? "p" : "T";
    for (const std::string& title :
         {options.by, other, std::string("v'"), std::string("v''"), std::string("h'"),
          std::string("r"), std::string("h''"), std::string("s'"), std::string("s''")})
        grid.columns.push_back(column_of(title, title == "r" ? "h" : title.substr(0, 1), wanted));
    grid.columns[0].places = as_given;
    int status = 0;
    for (const double y : given) {
        const State liquid = of_t ? vaprix::liquid_of_t(y, family) : vaprix::liquid_of_p(y, family);
        const State steam = of_t ? vaprix::vapour_of_t(y, family) : vaprix::vapour_of_p(y, family);
        if (!liquid) {
            complain_of(liquid, options.by + " = " + in_words(grid.columns[0], y));
            status = 1;
        }
        grid.rows.push_back({y, of_t ? liquid.p() : liquid.T(), liquid.v(), steam.v(), liquid.h(),
                             steam.h() - liquid.h(), steam.h(), liquid.s(), steam.s()});
    }
    print(grid, options.format);
    return status;
}

// Steam of some pressures at all temperatures, beside each other, or in CSV below each other with a column of p.
class Superheated {
public:
    explicit Superheated(const Options& options)
        : options_(options),
          wanted_(options.units),
          temperatures_(steps_of(options, "K", wanted_)) {
        for (const std::string& text : options.pressures) {
            const Unit* unit = nullptr;
            pressures_.push_back(parse_quantity(text, "MPa", unit));
            wanted_.add(*unit);
        }
        p_ = column_of("p", "p", wanted_);
        t_ = column_of("T", "T", wanted_);
        p_.places = t_.places = as_given;
    }

    int run() {
        constexpr std::size_t beside = 2;  // of 80 columns
        if (options_.format == "csv") return print_list();
        for (std::size_t first = 0; first < pressures_.size(); first += beside) {
            if (first > 0) std::puts("");
            print_beside(first, std::min(pressures_.size(), first + beside));
        }
        return status_;
    }

private:
    int print_list() {
        Grid grid{{p_, t_}, {}, {}};
        add_columns(grid);
        for (const double p : pressures_) {
            for (const double t : temperatures_) {
                grid.rows.push_back({p, t});
                add_steam(p, t, grid.rows.back());
            }
        }
        print(grid, options_.format);
        return status_;
    }
    void print_beside(std::size_t first, std::size_t end) {
        Grid grid{{t_}, {}, {}};
        for (std::size_t k = first; k < end; ++k) {
            add_columns(grid);
            const State saturated = vaprix::vapour_of_p(pressures_[k], family_);
            grid.groups.push_back(in_words(p_, pressures_[k]) +
                                  (saturated ? " (" + in_words(t_, saturated.T()) + ")" : ""));
        }
        for (const double t : temperatures_) {
            grid.rows.push_back({t});
            for (std::size_t k = first; k < end; ++k) add_steam(pressures_[k], t, grid.rows.back());
        }
        print(grid, options_.format);
    }
    void add_columns(Grid& grid) const {
        for (const char* const symbol : {"v", "h", "s"})
            grid.columns.push_back(column_of(symbol, symbol, wanted_));
    }
    // None below saturation, which is no failure.
    void add_steam(double p, double t, std::vector<double>& row) {
        const State saturated = vaprix::vapour_of_p(p, family_);
        const bool is_steam = !saturated || t > saturated.T();
        const State state = is_steam             ? vaprix::of_pt(p, t, family_)
                            : t == saturated.T() ? saturated
                                                 : State();
        if (is_steam && !state) {
            complain_of(state, "p = " + in_words(p_, p) + ", T = " + in_words(t_, t));
            status_ = 1;
        }
        row.insert(row.end(), {state.v(), state.h(), state.s()});
    }

    const Options& options_;
    const Family family_ = family_of(options_.family);
    Wanted wanted_;
    std::vector<double> temperatures_, pressures_;
    GridColumn p_, t_;
    int status_ = 0;
};

void add_common(CLI::App& command, Options& options) {
    command.add_option("--from", options.from, "The first line, with a unit, else in K or MPa")
        ->type_name("VALUE")
        ->required();
    command.add_option("--to", options.to, "The last line")->type_name("VALUE")->required();
    command.add_option("--step", options.step, "From line to line, in the unit of --from")
        ->type_name("NUMBER")
        ->required();
    command.add_option("--format", options.format, "What is printed; csv has all digits")
        ->check(CLI::IsMember({"text", "csv", "markdown"}))
        ->type_name("text|csv|markdown")
        ->capture_default_str();
    add_units(command, options.units);
    add_family(command, options.family);
}

}  // namespace

void add_table(CLI::App& app, int& status) {
    CLI::App* const command =
        app.add_subcommand("table", "Print a steam table in the classical layout");
    command->require_subcommand(1);
    command->footer(
        "Examples:\n"
        "  vaprix table saturation --by T --from 0C --to 370C --step 5\n"
        "  vaprix table superheated -p 1bar,5bar,10bar --from 100C --to 600C --step 50");

    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        command->add_subcommand("saturation", "Both phases along the saturation line");
    line->add_option("--by", options->by, "What the lines are for")
        ->check(CLI::IsMember({"T", "p"}))
        ->type_name("T|p")
        ->capture_default_str();
    add_common(*line, *options);
    line->footer(
        "' is liquid, '' is steam, r the heat of vaporisation.\n\nExamples:\n"
        "  vaprix table saturation --by T --from 0C --to 370C --step 5\n"
        "  vaprix table saturation --by p --from 1bar --to 10bar --step 0.5 --format csv");
    line->callback([options, &status] { status = saturation(*options); });

    const auto of_steam = std::make_shared<Options>();
    CLI::App* const steam =
        command->add_subcommand("superheated", "Superheated steam by temperature");
    steam->add_option("-p,--pressure", of_steam->pressures, "Pressures, with units, else in MPa")
        ->type_name("VALUE")
        ->expected(1)
        ->take_all()
        ->delimiter(',')
        ->required();
    add_common(*steam, *of_steam);
    steam->footer(
        "Over each pressure's columns stands its saturation temperature.\n\nExamples:\n"
        "  vaprix table superheated -p 1bar,5bar,10bar --from 100C --to 600C --step 50");
    steam->callback([of_steam, &status] { status = Superheated(*of_steam).run(); });
}

}  // namespace vaprix::cli
