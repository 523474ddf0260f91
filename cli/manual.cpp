// SPDX-License-Identifier: MIT
//
// vaprix manual: the man page, of what --help says.
#include <cstdio>

#include "commands.hpp"
#include "help.hpp"

namespace vaprix::cli {
namespace {

// Text as roff prints it literally.
std::string roff(const std::string& text) {
    std::string out;
    bool begins_line = true;
    for (const char c : text) {
        if (begins_line && (c == '.' || c == '\'')) out += "\\&";
        out += c == '-' ? "\\-" : c == '\\' ? "\\e" : std::string(1, c);
        begins_line = c == '\n';
    }
    return out;
}

void print_choices(const CLI::App& command) {
    for (const Choice& choice : choices_of(command))
        std::printf(".TP\n\\fB%s\\fR\n%s\n", roff(spelled(choice)).c_str(),
                    roff(choice.text).c_str());
}

void print_footer(const CLI::App& command) {
    std::printf(".PP\n.nf\n%s\n.fi\n", roff(command.get_footer()).c_str());
}

void print_command(const CLI::App& command) {
    std::printf(".SS \"%s\"\n%s.\n", roff(usage_of(command)).c_str(),
                roff(command.get_description()).c_str());
    print_choices(command);
    print_footer(command);
    for (const CLI::App* below : commands_of(command)) print_command(*below);
}

void print_manual(const CLI::App& program) {
    std::printf(".TH VAPRIX 1 \"\" \"vaprix %s\" \"User Commands\"\n", VAPRIX_VERSION);
    std::printf(".SH NAME\nvaprix \\- properties of water and steam after IAPWS\\-IF97\n");
    std::printf(".SH SYNOPSIS\n\\fB%s\\fR\n", roff(usage_of(program)).c_str());
    std::printf(".SH DESCRIPTION\n%s\n", roff(program.get_description()).c_str());
    std::printf(".SH COMMANDS\n");
    for (const CLI::App* command : commands_of(program)) print_command(*command);
    std::printf(".SH OPTIONS\n");
    print_choices(program);
    std::printf(".SH NOTES\n");
    print_footer(program);
}

}  // namespace

void add_manual(CLI::App& app) {
    app.add_subcommand("manual", "Print the man page")->group("")->callback([&app] {
        print_manual(app);
    });
}

}  // namespace vaprix::cli
