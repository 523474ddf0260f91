// SPDX-License-Identifier: MIT
//
// vaprix map: columns added to a table.
#include <memory>

#include "commands.hpp"
#include "stream.hpp"

namespace vaprix::cli {

void add_map(CLI::App& app, int& status) {
    const auto options = std::make_shared<MapOptions>();
    CLI::App* const command =
        app.add_subcommand("map", "Add columns to a table, CSV or TSV, of any size");
    command->add_option("-i,--in", options->in, "The table; - is stdin")
        ->type_name("FILE")
        ->capture_default_str();
    command->add_option("-o,--out", options->out, "Where to write; - is stdout")
        ->type_name("FILE")
        ->capture_default_str();
    command
        ->add_option("-a,--add", options->formulas,
                     "A column to add: NAME = PROPERTY(COLUMN, COLUMN), the property as vaprix "
                     "state shows it or "
                     "a function that vaprix list shows. A unit may stand in brackets after each "
                     "name. A column "
                     "is named as in the header, in quotes if need be, or by its number, #2; or it "
                     "is a constant. "
                     "Which variable it is, its name or unit tells, or p=COLUMN")
        ->type_name("FORMULA")
        ->expected(1)
        ->take_all()
        ->required();
    command
        ->add_option("-u,--unit", options->units,
                     "The unit of a column, or, without one, of results. Else it is told by the "
                     "formula, the "
                     "header, T [C] or T/C, a row of units below it; else it is MPa, K, m3/kg, "
                     "kg/m3, kJ/kg, "
                     "kJ/(kg K)")
        ->type_name("[COLUMN=]UNIT")
        ->expected(1)
        ->take_all();
    add_family(*command, options->family);
    command
        ->add_option("-d,--digits", options->digits,
                     "Significant digits of results; else as many as there are")
        ->check(CLI::Range(1, 17))
        ->type_name("N");
    command
        ->add_option("-s,--separator", options->separator,
                     "One character, or tab; else as the first line shows")
        ->type_name("CHAR");
    command
        ->add_option("--decimal", options->decimal,
                     "What numbers are written with; else as the first rows show")
        ->check(CLI::IsMember({"point", "comma"}))
        ->type_name("point|comma");
    command
        ->add_option("--header", options->header,
                     "Whether there is one; else as the first line shows")
        ->check(CLI::IsMember({"yes", "no"}))
        ->type_name("yes|no");
    command->add_option("-j,--jobs", options->jobs, "Threads; else one a processor")
        ->check(CLI::Range(1, 1024))
        ->type_name("N");
    command
        ->add_option("--messages", options->most_messages,
                     "Name at most so many bad rows on stderr")
        ->type_name("N")
        ->capture_default_str();
    command->footer(
        "Every line is passed on, in order; comments (#) and blank lines as they stand.\n"
        "A row without an answer has an empty cell and a line on stderr, and the status\n"
        "is 1.\n\nExamples:\n"
        "  vaprix map -i plant.csv -a 'h = h(p[bar], T[C])' -a 's = s(p, h)' -o new.csv\n"
        "  vaprix map -a 'x = x(p=#3[kPa], h=2500)' -u Btu/lb <log.tsv | sort\n"
        "  vaprix map -i log.csv -a 'Ts[C] = TOP(p[bar])' --decimal comma");
    command->callback([options, &status] { status = map(*options); });
}

}  // namespace vaprix::cli
