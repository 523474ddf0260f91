// SPDX-License-Identifier: MIT
//
// vaprix state: the whole state of any two variables.
#include <cmath>
#include <cstdio>
#include <memory>

#include "commands.hpp"
#include "exports.hpp"
#include "layout.hpp"
#include "states.hpp"
#include "units.hpp"

namespace vaprix::cli {
namespace {

struct Options {
    std::vector<std::string> words, units;
    std::string family = "O";
    bool both = false, json = false;
    int digits = 7;
};

struct Given {
    std::string_view symbol;
    double value;
};

// A column of what is shown: a state, or a phase of it.
struct Shown {
    std::string title;
    State state;
};

// "p=15MPa" "T=600" "C": a word without an equals sign is the unit of the one before.
std::vector<Given> given_by(const std::vector<std::string>& words, Wanted& wanted) {
    std::vector<std::string> sentences;
    for (const std::string& word : words) {
        if (word.find('=') == std::string::npos && !sentences.empty())
            sentences.back() += " " + word;
        else
            sentences.push_back(word);
    }
    std::vector<Given> out;
    for (const std::string& sentence : sentences) {
        const std::size_t equals = sentence.find('=');
        const std::string_view symbol =
            trimmed(std::string_view(sentence).substr(0, std::min(equals, sentence.size())));
        const auto variable =
            std::find_if(variables.begin(), variables.end(),
                         [&](const Variable& known) { return known.name == symbol; });
        if (equals == std::string::npos || symbol.size() != 1 || variable == variables.end())
            throw Error("'" + sentence +
                        "' is not p, T, v, d, h, s or x with its value, such as p=15MPa");
        const Unit* unit = nullptr;
        try {
            const std::string_view text = std::string_view(sentence).substr(equals + 1);
            out.push_back({variable->name, parse_quantity(text, variable->unit, unit)});
        } catch (const Error& error) {
            throw Error(std::string(symbol) + ": " + error.what());
        }
        if (unit != nullptr) wanted.add(*unit);
    }
    if (out.size() != 2 || out[0].symbol == out[1].symbol)
        throw Error("a state takes two variables, such as: vaprix state p=15MPa T=600C");
    return out;
}

std::string in_words(const std::vector<Given>& given) {
    std::string out;
    for (const Given& variable : given)
        out += (out.empty() ? "" : ", ") + std::string(variable.symbol) + " = " +
               shortest(variable.value) + " " + std::string(variable_named(variable.symbol).unit);
    return out;
}

State resolved(Resolver of, const Pair& pair, const std::vector<Given>& given, Family family) {
    return pair.swapped ? of(given[1].value, given[0].value, family)
                        : of(given[0].value, given[1].value, family);
}

// How far from saturation, for the headline.
std::string distance(const State& state) {
    const double by = superheat_of(state);
    if (std::isnan(by)) return "";
    return ", " + rounded(std::abs(by), 5) + (by < 0 ? " K below" : " K above") + " saturation";
}

bool has_phases(const State& state) { return state.region() == 4; }

std::vector<Shown> with_phases(const State& state) {
    std::vector<Shown> out{{has_phases(state) ? "mixture" : "", state}};
    if (has_phases(state)) {
        out.push_back({"liquid", state.liquid()});
        out.push_back({"steam", state.vapour()});
    }
    return out;
}

void print_text(const std::vector<Shown>& shown, const Wanted& wanted, int digits) {
    Table table;
    table.head = {""};
    for (const Shown& column : shown) table.head.push_back(column.title);
    table.head.resize(shown.size() + 3);
    for (const Property& property : properties) {
        const Unit& unit = wanted.of(property.unit);
        std::vector<std::string> cells{std::string(property.symbol)};
        bool any = false;
        for (const Shown& column : shown) {
            const double value = property.of(column.state);
            cells.push_back(std::isnan(value) ? "-" : rounded(from_base(unit, value), digits));
            any = any || !std::isnan(value);
        }
        cells.emplace_back(unit.name);
        cells.emplace_back(property.quantity);
        if (any) table.rows.push_back(std::move(cells));
    }
    print(table);
}

std::string json_of(const State& state, const Wanted& wanted) {
    std::string out = "{\"region\": " + std::to_string(state.region()) + ", \"phase\": \"" +
                      std::string(phase_of(state)) + '"';
    for (const Property& property : properties) {
        const double value = property.of(state);
        if (!std::isfinite(value)) continue;
        const Unit& unit = wanted.of(property.unit);
        out += ",\n    \"" + std::string(property.symbol) +
               "\": {\"value\": " + shortest(from_base(unit, value)) + ", \"unit\": \"" +
               std::string(unit.name) + "\"}";
    }
    if (has_phases(state)) {
        out += ",\n  \"liquid\": " + json_of(state.liquid(), wanted);
        out += ",\n  \"steam\": " + json_of(state.vapour(), wanted);
    }
    return out + '}';
}

int run(const Options& options) {
    Wanted wanted(options.units);
    const std::vector<Given> given = given_by(options.words, wanted);
    const Pair pair = pair_of(given[0].symbol, given[1].symbol);
    const std::vector<std::string> families = options.both
                                                  ? std::vector<std::string>{"O", "B"}
                                                  : std::vector<std::string>{options.family};

    std::vector<Shown> shown;
    for (const std::string& family : families) {
        const State state = resolved(pair.of, pair, given, family_of(family));
        if (!state) {
            complain("no state of " + in_words(given) + ": " + meaning_of(state.code()) +
                     " (code " + std::to_string(state.code()) + ")");
            return 1;
        }
        shown.push_back({family + "-family", state});
    }
    if (options.json) {
        std::string out = "{";
        for (std::size_t k = 0; k < shown.size(); ++k)
            out +=
                (k > 0 ? ",\n \"" : "\"") + families[k] + "\": " + json_of(shown[k].state, wanted);
        std::puts((out + '}').c_str());
        return 0;
    }
    const State& state = shown[0].state;
    std::string headline = std::string(phase_of(state)) + distance(state);
    headline[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(headline[0])));
    std::printf("%s\n%s\n\n", headline.c_str(),
                (std::string(region_in_words(state)) + "; " +
                 (options.both ? "O-family and B-family" : shown[0].title))
                    .c_str());
    print_text(options.both ? shown : with_phases(state), wanted, options.digits);
    if (const Resolver of = other_of(given[0].symbol, given[1].symbol)) {
        if (const State other = resolved(of, pair, given, family_of(options.family))) {
            const Unit &p = wanted.of("MPa"), &T = wanted.of("K");
            std::printf("\nThe same %s and %s have a second state, at %s %s and %s %s.\n",
                        std::string(given[0].symbol).c_str(), std::string(given[1].symbol).c_str(),
                        rounded(from_base(p, other.p()), options.digits).c_str(),
                        std::string(p.name).c_str(),
                        rounded(from_base(T, other.T()), options.digits).c_str(),
                        std::string(T.name).c_str());
        }
    }
    return 0;
}

}  // namespace

void add_state(CLI::App& app, int& status) {
    const auto options = std::make_shared<Options>();
    CLI::App* const command =
        app.add_subcommand("state", "Show the whole state of any two variables");
    command
        ->add_option(
            "variable", options->words,
            "Two of p, T, v, d, h, s, x with a value and a unit, such as p=15MPa T=600C. Without a "
            "unit: MPa, K, m3/kg, kg/m3, kJ/kg, kJ/(kg K), kg/kg")
        ->required();
    add_units(*command, options->units);
    add_family(*command, options->family);
    command->add_flag("--both", options->both, "Show both families, side by side");
    command->add_option("-d,--digits", options->digits, "Significant digits of the text")
        ->check(CLI::Range(1, 17))
        ->type_name("N")
        ->capture_default_str();
    command->add_flag("--json", options->json, "Print JSON, with all digits");
    command->footer(
        "Examples:\n"
        "  vaprix state p=15MPa T=600C\n"
        "  vaprix state p=100mbar x=0.88 -u bar,C\n"
        "  vaprix state h=1500Btu/lb s=1.6Btu/lbR -u psi,F,lb/ft3\n"
        "  vaprix state p=25 h=2100 --both --json");
    command->callback([options, &status] { status = run(*options); });
}

}  // namespace vaprix::cli
