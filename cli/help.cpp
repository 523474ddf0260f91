// SPDX-License-Identifier: MIT
#include "help.hpp"

#include <algorithm>

#include "layout.hpp"

namespace vaprix::cli {
namespace {

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> out;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(at, begin), text.size());
        out.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return out;
}

Choice choice_of(const CLI::Option& option) {
    Choice out;
    out.is_argument = option.get_positional();
    out.is_required = option.get_required();
    out.is_repeated = option.get_items_expected_max() > 1;
    out.text = option.get_description();
    // "NAME" of the value, its answers "a|b", or both, "NAME:a|b"; then what the validators say
    const std::vector<std::string> parts = split(option.get_type_name(), ':');
    for (const std::string& part : parts)
        if (part.find('|') != std::string::npos) out.answers = split(part, '|');
    if (out.is_argument) {
        out.names = {option.get_name(true)};
        return out;
    }
    for (const std::string& name : option.get_snames()) out.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) out.names.push_back("--" + name);
    if (option.get_type_size_max() == 0) return out;
    out.value = parts[0];
    if (!option.get_default_str().empty()) out.text += " (" + option.get_default_str() + ")";
    return out;
}

// A line of two columns, the second wrapped.
std::string entry(const std::string& name, const std::string& text) {
    constexpr std::size_t column = 24;
    std::string out = "  " + padded(name, column - 4);
    out += name.size() > column - 4 ? "\n" + std::string(column, ' ') : "  ";
    return out + hanging(text, column) + '\n';
}

}  // namespace

std::vector<Choice> choices_of(const CLI::App& command) {
    std::vector<Choice> out;
    for (const CLI::Option* option : command.get_options())
        if (!option->get_group().empty()) out.push_back(choice_of(*option));
    std::stable_partition(out.begin(), out.end(),
                          [](const Choice& choice) { return choice.is_argument; });
    return out;
}

std::vector<const CLI::App*> commands_of(const CLI::App& program) {
    return program.get_subcommands(
        [](const CLI::App* command) { return !command->get_group().empty(); });
}

std::string usage_of(const CLI::App& command) {
    std::string out = command.get_name();
    for (const CLI::App* above = command.get_parent(); above != nullptr;
         above = above->get_parent())
        out = above->get_name() + " " + out;
    out += commands_of(command).empty() ? " [OPTION]..." : " COMMAND [OPTION]...";
    for (const Choice& choice : choices_of(command)) {
        if (!choice.is_argument) continue;
        const std::string word = choice.names[0] + (choice.is_repeated ? "..." : "");
        out += choice.is_required ? " " + word : " [" + word + "]";
    }
    return out;
}

std::string spelled(const Choice& choice) {
    std::string out;
    for (const std::string& name : choice.names) out += (out.empty() ? "" : ", ") + name;
    return choice.value.empty() ? out : out + " " + choice.value;
}

std::string help_of(const CLI::App& command) {
    std::string out =
        hanging(command.get_description(), 0) + "\n\nUsage: " + usage_of(command) + "\n";
    const std::vector<Choice> choices = choices_of(command);
    const auto section = [&](const char* title, bool of_arguments) {
        std::string lines;
        for (const Choice& choice : choices)
            if (choice.is_argument == of_arguments) lines += entry(spelled(choice), choice.text);
        if (!lines.empty()) out += std::string("\n") + title + "\n" + lines;
    };
    section("Arguments:", true);
    const auto commands = commands_of(command);
    if (!commands.empty()) out += "\nCommands:\n";
    for (const CLI::App* known : commands)
        out += entry(known->get_name(), known->get_description());
    section("Options:", false);
    return out + "\n" + command.get_footer() + "\n";
}

}  // namespace vaprix::cli
