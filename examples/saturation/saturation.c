// SPDX-License-Identifier: MIT
// The classical saturation table of water, by temperature or by pressure.
#include "binding.h"
#include "csv.h"
#include "table.h"
#include "units.h"

#include <getopt.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

enum { exit_good, exit_bad_input, exit_unusable };  // the program's exit status

static const char usage[] =
    "Usage: saturation [--library PATH] [--pressure] [--from X] [--to X] [--step X]\n"
    "                  [--unit UNIT] [--family B|O] [--csv]\n";

static const char help[] =
    "Prints the saturation table of water: t, p, v', v'', h', r, h'', s', s''.\n"
    "\n"
    "  --library PATH  library to open (libvaprix.so, searched by the system's loader)\n"
    "  --pressure      by pressure: p first, at 1, 2, 5, 10 ...; else by temperature, in\n"
    "                  steps of 5 degC\n"
    "  --from X        first line, in degC or in the unit of pressure\n"
    "  --to X          last line\n"
    "  --step X        even distance of lines; the first is X if a pressure is not told\n"
    "  --unit UNIT     of the absolute pressure, bar unless given: " PRESSURE_UNITS
    "\n"
    "  --family B|O    family of the library's functions, B unless given\n"
    "  --csv           comma-separated, with all digits\n"
    "  --help          this text\n"
    "\n"
    "The table covers 0 degC or the triple point to the critical point unless told\n"
    "otherwise; both points have lines of their own.\n"
    "\n"
    "Exit status: 0 all good, 1 lines outside the saturation line (reported on stderr,\n"
    "the good ones are printed), 2 nothing could be done.\n";

// The names follow one scheme: quantity, 1 or 2 for the phase, family, argument; H1BT, S2OP ...
static bool open_library(const char* path, char family, int by, Library* library) {
    static const char quantities[quantity_count] = {
        [quantity_v] = 'V', [quantity_h] = 'H', [quantity_s] = 'S'};
    const char argument = by == by_temperature ? 'T' : 'P';
    const char name_of_other[] = {by == by_temperature ? 'P' : 'T', family, argument, '\0'};
    Binding binding;
    if (!open_binding("saturation", path, &binding)) {
        return false;
    }
    library->other = (OfOne*)bind_name(&binding, name_of_other);
    for (int q = 0; q < quantity_count; ++q) {
        for (int phase = 0; phase < phase_count; ++phase) {
            const char name[] = {quantities[q], phase == liquid ? '1' : '2', family, argument,
                                 '\0'};
            library->saturated[q][phase] = (OfOne*)bind_name(&binding, name);
        }
    }
    const char* triple = by == by_temperature ? "TTRIPLE" : "PTRIPLE";
    const char* critical = by == by_temperature ? "TCRIT" : "PCRIT";
    library->triple = (Constant*)bind_name(&binding, triple);
    library->critical = (Constant*)bind_name(&binding, critical);
    return binding.complete;
}

static bool complain(const char* option, const char* fault, const char* text) {
    fprintf(stderr, "saturation: --%s: %s (%s)\n", option, fault, text);
    return false;
}

static bool read_number(const char* option, const char* text, double* value) {
    const char* wrong = parse_number(text, value);
    return wrong == NULL || complain(option, wrong, text);
}

static int flush_output(int status) {
    if (fflush(stdout) != 0 || ferror(stdout)) {
        perror("saturation: cannot write");
        return exit_unusable;
    }
    return status;
}

int main(int argc, char* argv[]) {
    static const struct option long_options[] = {
        {"library", required_argument, NULL, 'l'}, {"pressure", no_argument, NULL, 'p'},
        {"from", required_argument, NULL, 'f'},    {"to", required_argument, NULL, 't'},
        {"step", required_argument, NULL, 's'},    {"unit", required_argument, NULL, 'u'},
        {"family", required_argument, NULL, 'y'},  {"csv", no_argument, NULL, 'c'},
        {"help", no_argument, NULL, 'h'},          {NULL, 0, NULL, 0},
    };
    const char* path = "libvaprix.so";
    char family = 'B';
    Wishes wishes = {.by = by_temperature,
                     .pressure_unit = "bar",
                     .from = (double)NAN,
                     .to = (double)NAN,
                     .step = (double)NAN};
    bool good = true;
    for (int option; (option = getopt_long(argc, argv, "", long_options, NULL)) != -1;) {
        double unit;
        switch (option) {
            case 'l': path = optarg; break;
            case 'p': wishes.by = by_pressure; break;
            case 'f': good &= read_number("from", optarg, &wishes.from); break;
            case 't': good &= read_number("to", optarg, &wishes.to); break;
            case 's':
                good &= read_number("step", optarg, &wishes.step) &&
                        (wishes.step > 0.0 || complain("step", "not greater than 0", optarg));
                break;
            case 'u':
                wishes.pressure_unit = optarg;
                good &= pressure_of(1.0, optarg, &unit) ||
                        complain("unit", "unknown, known are " PRESSURE_UNITS, optarg);
                break;
            case 'y':
                family = *optarg;
                good &= strcmp(optarg, "B") == 0 || strcmp(optarg, "O") == 0 ||
                        complain("family", "B or O", optarg);
                break;
            case 'c': wishes.csv = true; break;
            case 'h': printf("%s%s", usage, help); return flush_output(exit_good);
            default: good = false;
        }
    }
    if (!good || optind != argc) {
        fputs(usage, stderr);
        return exit_unusable;
    }
    Library library;
    if (!open_library(path, family, wishes.by, &library)) {
        return exit_unusable;
    }
    const char* wrong = settle(&library, &wishes);
    if (wrong != NULL) {
        fprintf(stderr, "saturation: %s\n", wrong);
        return exit_unusable;
    }
    return flush_output(print_table(&library, &wishes) == 0 ? exit_good : exit_bad_input);
}
