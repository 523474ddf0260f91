// SPDX-License-Identifier: MIT
//
// The command vaprix. Exit status: 0, 1 if some state or row has no answer, 2 if nothing could be done.
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "commands.hpp"
#include "help.hpp"
#include "units.hpp"

namespace vaprix::cli {

void add_units(CLI::App& command, std::vector<std::string>& wanted) {
    command.add_option("-u,--unit", wanted, "Show in this unit; several, or with commas between")
        ->type_name("UNIT")
        ->expected(1)
        ->take_all()
        ->delimiter(',');
}

void add_family(CLI::App& command, std::string& family) {
    command.add_option("-f,--family", family, "The family that answers")
        ->check(CLI::IsMember({"O", "B"}))
        ->type_name("O|B")
        ->capture_default_str();
}

void complain(const std::string& what) { std::fprintf(stderr, "vaprix: %s\n", what.c_str()); }

namespace {

int run(int argc, char** argv) {
    CLI::App app{"Properties of water and steam after IAPWS-IF97.", "vaprix"};
    app.set_version_flag("--version", "vaprix " VAPRIX_VERSION, "Print the version");
    app.set_help_flag("-h,--help", "Print this help");
    app.require_subcommand(1);
    int status = 0;
    add_state(app, status);
    add_table(app, status);
    add_map(app, status);
    add_chart(app, status);
    add_call(app, status);
    add_list(app);
    add_help(app);
    add_completion(app);
    add_manual(app);
    app.footer(
        "vaprix COMMAND --help explains a command.\n\nExit status: 0; 1 if some state or row has "
        "no answer, which "
        "stderr names; 2 if\nnothing could be done.\n\nExamples:\n"
        "  vaprix state p=15MPa T=600C\n"
        "  vaprix map -i plant.csv -a 'h = h(p[bar], T[C])'\n"
        "  vaprix call HBPT 15 873.15");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        const CLI::App* about = &app;
        while (!about->get_subcommands().empty()) about = about->get_subcommands()[0];
        std::fputs(help_of(*about).c_str(), stdout);
    } catch (const CLI::Success& asked) {  // --version
        std::puts(asked.what());
    } catch (const CLI::ParseError& error) {
        complain(error.what());
        std::fputs("Try: vaprix --help\n", stderr);
        return 2;
    } catch (const Error& error) {
        complain(error.what());
        return 2;
    }
    return status;
}

}  // namespace
}  // namespace vaprix::cli

int main(int argc, char** argv) {
    // what is printed is written at the end, where a failure to write is seen
    std::setvbuf(stdout, nullptr, _IOFBF, std::size_t{1} << 20);
    const int status = vaprix::cli::run(argc, argv);
    errno = 0;
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        vaprix::cli::complain(std::string("cannot write") + (errno != 0 ? ": " : "") +
                              (errno != 0 ? std::strerror(errno) : ""));
        return 2;
    }
    return status;
}
