// SPDX-License-Identifier: MIT
//
// The subcommands. Each adds itself with its options, help and examples; run, it leaves the exit status: 0, 1 if some
// state or row has no answer, which stderr names; Error is thrown for what cannot be done at all, status 2.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace vaprix::cli {

void add_state(CLI::App& app, int& status);
void add_table(CLI::App& app, int& status);
void add_map(CLI::App& app, int& status);
void add_chart(CLI::App& app, int& status);
void add_call(CLI::App& app, int& status);
void add_list(CLI::App& app);
void add_help(CLI::App& app);
void add_completion(CLI::App& app);
void add_manual(CLI::App& app);

// Options that several commands have.
void add_units(CLI::App& command, std::vector<std::string>& wanted);
void add_family(CLI::App& command, std::string& family);

// A line on stderr, with the program's name.
void complain(const std::string& what);

}  // namespace vaprix::cli
