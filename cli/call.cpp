// SPDX-License-Identifier: MIT
//
// vaprix call, list and help: the exports one by one.
#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <memory>

#include "commands.hpp"
#include "exports.hpp"
#include "help.hpp"
#include "layout.hpp"
#include "units.hpp"

namespace vaprix::cli {
namespace {

std::string upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

const Export& named(const std::string& name) {
    if (const Export* const found = find_export(upper(name))) return *found;
    throw Error("no function '" + name + "'; vaprix list shows all");
}

std::string signature(const Export& function) {
    std::string out(function.name);
    const char* before = "(";
    for (const std::string_view argument : words_of(function.arguments)) {
        out += before + std::string(argument);
        before = ", ";
    }
    return function.arguments.empty() ? out + "()" : out + ')';
}

struct Call {
    std::string name, unit;
    std::vector<std::string> arguments;
};

int run(const Call& call) {
    const Export& function = named(call.name);
    const std::vector<std::string_view> names = words_of(function.arguments);
    if (call.arguments.size() != names.size())
        throw Error(signature(function) + " takes " + std::to_string(names.size()) +
                    " arguments, not " + std::to_string(call.arguments.size()));
    std::array<double, most_arguments> values{};
    for (std::size_t k = 0; k < names.size(); ++k) {
        const Unit* unit = nullptr;
        values[k] = parse_quantity(call.arguments[k], variable_named(names[k]).unit, unit);
    }
    const Unit& unit =
        Wanted(call.unit.empty() ? std::vector<std::string>{} : std::vector{call.unit})
            .of(function.unit);
    std::array<const double*, most_arguments> at{};
    for (std::size_t k = 0; k < names.size(); ++k) at[k] = &values[k];
    double result = 0;
    std::int32_t code = 0;
    int region = 0;
    evaluate(function, 1, at.data(), &result, &code, &region);
    if (const auto reason = failure_of(function, result, code)) {
        complain(signature(function) + ": " + *reason);
        return 1;
    }
    std::puts(shortest(from_base(unit, result)).c_str());
    if (std::find(names.begin(), names.end(), "region") != names.end())
        std::printf("region %d\n", region);
    return 0;
}

bool is_match(const Export& function, const std::vector<std::string>& words) {
    const std::string text =
        upper(signature(function) + " " + std::string(function.description) + " " +
              std::string(function.title) + " " + std::string(function.unit));
    return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return text.find(upper(word)) != std::string::npos;
    });
}

void list(const std::vector<std::string>& words, bool names_only) {
    std::string_view title;
    for (const Export& function : exports) {
        if (!is_match(function, words)) continue;
        if (names_only) {
            std::puts(std::string(function.name).c_str());
            continue;
        }
        if (function.title != title)
            std::printf("%s%s\n", title.empty() ? "" : "\n", hanging(function.title, 0).c_str());
        title = function.title;
        const std::string unit = function.unit.empty() ? "" : ", " + std::string(function.unit);
        const std::string line = "  " + padded(signature(function), 20) + " ";
        std::puts((line + hanging(std::string(function.description) + unit, line.size())).c_str());
    }
}

void explain(const Export& function) {
    const std::string unit = function.unit.empty() ? "" : ", " + std::string(function.unit);
    std::printf("%s\n\n%s\n", signature(function).c_str(),
                hanging(std::string(function.description) + unit, 0).c_str());
    std::printf("%s\n", hanging(function.title, 0).c_str());
    if (!function.arguments.empty()) std::puts("\nArguments:");
    for (const std::string_view argument : words_of(function.arguments)) {
        const Variable& variable = variable_named(argument);
        const std::string in = variable.unit.empty() ? "" : ", " + std::string(variable.unit);
        std::printf("  %s %s%s\n", padded(argument, 10).c_str(),
                    std::string(variable.meaning).c_str(), in.c_str());
    }
    const std::pair<const char*, std::string_view> parts[] = {{"Range", function.range},
                                                              {"Failure", function.failure},
                                                              {"Note", function.note},
                                                              {"Source", function.source}};
    for (const auto& [label, text] : parts)
        if (!text.empty())
            std::printf("\n%s:\n  %s\n", label, hanging(std::string(text) + ".", 2).c_str());
    std::printf("\nExample:\n  %s\n", std::string(function.example).c_str());
}

}  // namespace

void add_call(CLI::App& app, int& status) {
    const auto call = std::make_shared<Call>();
    CLI::App* const command = app.add_subcommand("call", "Call one of the library's functions");
    command->add_option("function", call->name, "Its name, such as HBPT")->required();
    command->add_option(
        "argument", call->arguments,
        "Its arguments in order, in MPa, K, m3/kg, kg/m3, kJ/kg, kJ/(kg K), or with a unit");
    command->add_option("-u,--unit", call->unit, "Show the result in this unit")->type_name("UNIT");
    command->footer(
        "The result has all digits; a failure is named on stderr, with status 1.\n\nExamples:\n"
        "  vaprix call HBPT 15 873.15\n"
        "  vaprix call TOPH 150bar 3583.3kJ/kg -u C");
    command->callback([call, &status] { status = run(*call); });
}

void add_list(CLI::App& app) {
    const auto words = std::make_shared<std::vector<std::string>>();
    const auto names_only = std::make_shared<bool>(false);
    CLI::App* const command = app.add_subcommand("list", "List the library's functions");
    command->add_option("word", *words,
                        "Only those that have all these words in what is said of them");
    command->add_flag("--names", *names_only, "Print the names alone");
    command->footer("Examples:\n  vaprix list\n  vaprix list enthalpy 'p, T'");
    command->callback([words, names_only] { list(*words, *names_only); });
}

void add_help(CLI::App& app) {
    const auto subject = std::make_shared<std::string>();
    CLI::App* const command = app.add_subcommand("help", "Explain a function or a command");
    command->add_option("subject", *subject, "A function such as HBPT, or a command such as state");
    command->footer("Examples:\n  vaprix help HBPT\n  vaprix help map");
    command->callback([&app, subject] {
        const auto commands = app.get_subcommands(
            [&](const CLI::App* known) { return known->get_name() == *subject; });
        const CLI::App* const about = subject->empty()   ? &app
                                      : commands.empty() ? nullptr
                                                         : commands[0];
        if (about != nullptr)
            std::fputs(help_of(*about).c_str(), stdout);
        else
            explain(named(*subject));
    });
}

}  // namespace vaprix::cli
