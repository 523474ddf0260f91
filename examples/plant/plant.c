// SPDX-License-Identifier: MIT
// Properties of the measured stations of a steam plant, by both families of the property library.
#include "csv.h"
#include "report.h"
#include "sheet.h"
#include "units.h"

#include <getopt.h>
#include <stdio.h>

enum { exit_good, exit_bad_input, exit_unusable };  // the program's exit status

static const char usage[] =
    "Usage: plant [--library PATH] [--csv] [--balance] [--pump-efficiency FRACTION] STATIONS.csv\n";

static const char help[] =
    "Prints region, v, h, s, cp, w and the saturation temperature Ts of every station\n"
    "of a steam plant, by the B-family and the O-family of the library side by side,\n"
    "then the balance of the cycle if stations have roles in it.\n"
    "\n"
    "  --library PATH  library to open (libvaprix.so, searched by the system's loader)\n"
    "  --csv           comma-separated output in SI-based units with all digits, of the\n"
    "                  stations, or with --balance of the balance\n"
    "  --balance       the balance only\n"
    "  --pump-efficiency FRACTION\n"
    "                  isentropic efficiency of the pump, assumed to be 0.85\n"
    "  --help          this text\n"
    "\n"
    "STATIONS.csv (- for standard input) has a header row that names the columns\n"
    "station, p, p_unit, T, T_unit and perhaps x, role, note, in any order; then a row\n"
    "for each station. Blank lines and lines starting with # are skipped, other columns\n"
    "ignored.\n"
    "  p_unit, of the absolute pressure: " PRESSURE_UNITS
    "\n"
    "  T_unit: " TEMPERATURE_UNITS
    "\n"
    "  x: quality of wet steam, the mass fraction of vapour\n"
    "  role in the cycle, one station each:\n"
    "   " ROLE_NAMES
    "\n"
    "A station may leave T empty; its pressure alone fixes the saturation temperature,\n"
    "pressure and quality the state. What a balance lacks is said in it.\n"
    "\n"
    "Exit status: 0 all good, 1 bad lines, states outside the range of validity or a\n"
    "balance that cannot be right (reported on stderr, the good ones are printed),\n"
    "2 nothing could be done.\n";

typedef struct {
    const char *library, *file;
    PumpEfficiency pump;
    bool csv, balance_only;
} Options;

// Prints the stations if they are wanted and casts them; returns the number of faults.
static size_t print_stations(const Library* library, const Options* options,
                             const StationList* stations, Cycle* cycle) {
    size_t faults = 0;
    const Layout layout = layout_of(stations, options->csv);
    if (stations->count != 0 && !options->balance_only) {
        print_header(&layout);
    }
    for (size_t i = 0; i < stations->count; ++i) {
        State state = {0};
        const StateKind kind = evaluate(library, options->file, &stations->rows[i], &state);
        if (kind != STATE_NONE && !options->balance_only) {
            print_state(&layout, &stations->rows[i], &state);
        }
        cast_station(cycle, &stations->rows[i], &state, kind);
        faults += kind != STATE_WHOLE;
    }
    return faults;
}

static size_t print_balance(const Library* library, const Options* options, Cycle* cycle) {
    Balance balance;
    size_t faults = find_lacks(options->file, cycle);
    faults += balance_cycle(library, options->file, cycle, options->pump.value, &balance);
    if (!options->balance_only) {
        putchar('\n');
    }
    print_sheet(cycle, &balance, options->pump, options->csv);
    return faults;
}

static bool has_roles(const Cycle* cycle) {
    for (int role = 0; role < role_count; ++role) {
        if (cycle->station[role] != NULL) {
            return true;
        }
    }
    return false;
}

static int print_all(const Library* library, const Options* options, const StationList* stations) {
    Cycle cycle = {0};
    size_t faults = stations->faults + print_stations(library, options, stations, &cycle);
    if (has_roles(&cycle)) {
        if (options->balance_only || !options->csv) {
            faults += print_balance(library, options, &cycle);
        }
    } else if (options->balance_only) {
        fprintf(stderr, "%s: no station has a role in the cycle\n", options->file);
        ++faults;
    }
    return faults == 0 ? exit_good : exit_bad_input;
}

static int flush_output(int status) {
    if (fflush(stdout) != 0 || ferror(stdout)) {
        perror("plant: cannot write");
        return exit_unusable;
    }
    return status;
}

static bool read_efficiency(const char* text, PumpEfficiency* pump) {
    pump->assumed = false;
    const char* wrong = parse_number(text, &pump->value);
    if (wrong == NULL && !(pump->value > 0.0 && pump->value <= 1.0)) {
        wrong = "an efficiency is a fraction above 0, up to 1";
    }
    if (wrong != NULL) {
        fprintf(stderr, "plant: --pump-efficiency: %s (%s)\n", wrong, text);
    }
    return wrong == NULL;
}

int main(int argc, char* argv[]) {
    static const struct option long_options[] = {
        {"library", required_argument, NULL, 'l'},
        {"csv", no_argument, NULL, 'c'},
        {"balance", no_argument, NULL, 'b'},
        {"pump-efficiency", required_argument, NULL, 'p'},
        {"help", no_argument, NULL, 'h'},
        {NULL, 0, NULL, 0},
    };
    Options options = {.library = "libvaprix.so", .pump = {.value = 0.85, .assumed = true}};
    for (int option; (option = getopt_long(argc, argv, "", long_options, NULL)) != -1;) {
        switch (option) {
            case 'l': options.library = optarg; break;
            case 'c': options.csv = true; break;
            case 'b': options.balance_only = true; break;
            case 'p':
                if (!read_efficiency(optarg, &options.pump)) {
                    return exit_unusable;
                }
                break;
            case 'h': printf("%s%s", usage, help); return flush_output(exit_good);
            default: fputs(usage, stderr); return exit_unusable;
        }
    }
    if (optind + 1 != argc) {
        fputs(usage, stderr);
        return exit_unusable;
    }
    options.file = argv[optind];
    Library library;
    StationList stations = {0};
    int status = exit_unusable;
    if (open_library(options.library, &library) && read_stations(options.file, &stations)) {
        status = flush_output(print_all(&library, &options, &stations));
    }
    free_stations(&stations);
    return status;
}
