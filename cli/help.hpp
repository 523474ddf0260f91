// SPDX-License-Identifier: MIT
//
// What the options of a command say of themselves, as --help, man page and completion show it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace vaprix::cli {

struct Choice {
    std::vector<std::string> names;  // "-u", "--unit"; the one name of an argument
    std::string value;               // "UNIT"; empty of a flag
    std::string text;
    std::vector<std::string> answers;  // if there are only these
    bool is_argument = false, is_required = false, is_repeated = false;
};

// Of a command, or of the program.
std::vector<Choice> choices_of(const CLI::App& command);
std::vector<const CLI::App*> commands_of(const CLI::App& program);
std::string usage_of(const CLI::App& command);
std::string spelled(const Choice& choice);  // "-u, --unit UNIT"

std::string help_of(const CLI::App& command);

}  // namespace vaprix::cli
