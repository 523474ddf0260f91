// SPDX-License-Identifier: MIT
// Properties of the measured stations of a steam plant, by both families of the property library.
#include "report.h"
#include "units.h"

#include <getopt.h>
#include <stdio.h>

enum { exit_good, exit_bad_input, exit_unusable };  // the program's exit status

static const char usage[] = "Usage: plant [--library PATH] [--csv] STATIONS.csv\n";

static const char help[] =
    "Prints region, v, h, s, cp, w and the saturation temperature Ts of every station\n"
    "of a steam plant, by the B-family and the O-family of the library side by side.\n"
    "\n"
    "  --library PATH  library to open (libvaprix.so, searched by the system's loader)\n"
    "  --csv           comma-separated output in SI-based units with all digits\n"
    "  --help          this text\n"
    "\n"
    "STATIONS.csv (- for standard input) has a header row that names the columns\n"
    "station, p, p_unit, T, T_unit and perhaps note, in any order; then a row for each\n"
    "station. Blank lines and lines starting with # are skipped, other columns ignored.\n"
    "  p_unit, of the absolute pressure: " PRESSURE_UNITS
    "\n"
    "  T_unit: " TEMPERATURE_UNITS
    "\n"
    "A station may leave T empty; its pressure alone fixes the saturation temperature.\n"
    "\n"
    "Exit status: 0 all good, 1 bad lines or states outside the range of validity\n"
    "(reported on stderr, the good ones are printed), 2 nothing could be done.\n";

static int print_stations(const Library* library, const char* file, const StationList* stations,
                          bool csv) {
    size_t faults = stations->faults;
    const Layout layout = layout_of(stations, csv);
    if (stations->count != 0) {
        print_header(&layout);
    }
    for (size_t i = 0; i < stations->count; ++i) {
        State state;
        const StateKind kind = evaluate(library, file, &stations->rows[i], &state);
        if (kind != STATE_OUTSIDE) {
            print_state(&layout, &stations->rows[i], &state);
        }
        faults += kind != STATE_WHOLE;
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

int main(int argc, char* argv[]) {
    static const struct option options[] = {
        {"library", required_argument, NULL, 'l'},
        {"csv", no_argument, NULL, 'c'},
        {"help", no_argument, NULL, 'h'},
        {NULL, 0, NULL, 0},
    };
    const char* library_path = "libvaprix.so";
    bool csv = false;
    for (int option; (option = getopt_long(argc, argv, "", options, NULL)) != -1;) {
        switch (option) {
            case 'l': library_path = optarg; break;
            case 'c': csv = true; break;
            case 'h': printf("%s%s", usage, help); return flush_output(exit_good);
            default: fputs(usage, stderr); return exit_unusable;
        }
    }
    if (optind + 1 != argc) {
        fputs(usage, stderr);
        return exit_unusable;
    }
    const char* file = argv[optind];
    Library library;
    StationList stations = {0};
    int status = exit_unusable;
    if (open_library(library_path, &library) && read_stations(file, &stations)) {
        status = flush_output(print_stations(&library, file, &stations, csv));
    }
    free_stations(&stations);
    return status;
}
