// SPDX-License-Identifier: MIT
#define _POSIX_C_SOURCE 200809L
#include "stations.h"

#include "csv.h"
#include "units.h"

#include <errno.h>
#include <math.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

typedef enum { STATION, P, P_UNIT, T, T_UNIT, X, ROLE, NOTE, column_count } Column;

static const struct {
    const char* name;
    bool required;
} columns[column_count] = {
    [STATION] = {"station", true}, [P] = {"p", true},
    [P_UNIT] = {"p_unit", true},   [T] = {"T", true},
    [T_UNIT] = {"T_unit", true},   [X] = {"x", false},
    [ROLE] = {"role", false},      [NOTE] = {"note", false},
};

typedef struct {
    const char* file;
    int line;
    size_t width;               // fields of the header row and of every row after it
    size_t at[column_count];    // the field of each column, `width` for a column that is absent
    int role_line[role_count];  // where each role was given, 0 where it was not
} Table;

static bool fault(const Table* table, const char* what, const char* text) {
    report_line(table->file, table->line, what, text);
    return false;
}

// The columns may stand in any order; those we do not know are somebody else's and are passed over.
static bool read_header(Table* table, char* line) {
    char* fields[max_fields];
    const char* wrong = split_fields(line, fields, &table->width);
    if (wrong != NULL) {
        return fault(table, wrong, fields[0]);
    }
    for (size_t c = 0; c < column_count; ++c) {
        table->at[c] = table->width;
        for (size_t i = 0; i < table->width; ++i) {
            if (strcasecmp(fields[i], columns[c].name) != 0) {
                continue;
            }
            if (table->at[c] != table->width) {
                return fault(table, "duplicate column", fields[i]);
            }
            table->at[c] = i;
        }
        if (columns[c].required && table->at[c] == table->width) {
            return fault(table, "missing column", columns[c].name);
        }
    }
    return true;
}

static bool read_number(const Table* table, const char* text, double* value) {
    const char* wrong = parse_number(text, value);
    return wrong == NULL || fault(table, wrong, text);
}

static bool read_quantity(const Table* table, const char* number, const char* unit,
                          bool (*convert)(double, const char*, double*), double* result) {
    double value;
    if (!read_number(table, number, &value)) {
        return false;
    }
    if (!convert(value, unit, result)) {
        const char* known = convert == pressure_of
                                ? "unknown pressure unit, known are " PRESSURE_UNITS
                                : "unknown temperature unit, known are " TEMPERATURE_UNITS;
        return fault(table, known, unit);
    }
    return isfinite(*result) || fault(table, "number too large", number);
}

// The quality may be left out.
static bool read_quality(const Table* table, const char* text, Station* station) {
    station->has_x = *text != '\0';
    if (!station->has_x) {
        return true;
    }
    return read_number(table, text, &station->x) &&
           ((station->x >= 0.0 && station->x <= 1.0) ||
            fault(table, "a quality is a fraction from 0 to 1", text));
}

// So may the role, but no two stations play the same.
static bool read_role(Table* table, const char* text, Station* station) {
    station->role = role_named(text);
    if (*text == '\0') {
        return true;
    }
    if (station->role == no_role) {
        return fault(table, "unknown role, known are" ROLE_NAMES, text);
    }
    int* line = &table->role_line[station->role];
    if (*line != 0) {
        char what[60];
        snprintf(what, sizeof what, "the role is taken already by line %d", *line);
        return fault(table, what, text);
    }
    *line = table->line;
    return true;
}

static bool read_row(Table* table, char* line, Station* station) {
    char* fields[max_fields + 1];
    size_t count;
    const char* wrong = split_fields(line, fields, &count);
    if (wrong != NULL) {
        return fault(table, wrong, fields[0]);
    }
    if (count != table->width) {
        char what[80];
        snprintf(what, sizeof what, "%zu fields where the header row has %zu", count, table->width);
        return fault(table, what, fields[0]);
    }
    fields[count] = line + strlen(line);  // the empty field of an absent column
    const char *t = fields[table->at[T]], *t_unit = fields[table->at[T_UNIT]];
    *station = (Station){.name = fields[table->at[STATION]],
                         .note = fields[table->at[NOTE]],
                         .has_t = *t != '\0',
                         .line = table->line};
    if (*station->name == '\0') {
        return fault(table, "a station without a name", fields[table->at[P]]);
    }
    if (*fields[table->at[P]] == '\0') {
        return fault(table, "a station without a pressure", station->name);
    }
    // Without a temperature its unit says nothing and may be left out, but it may not be wrong.
    const bool t_is_blank = !station->has_t && *t_unit == '\0';
    return read_quantity(table, fields[table->at[P]], fields[table->at[P_UNIT]], pressure_of,
                         &station->p) &&
           (t_is_blank ||
            read_quantity(table, station->has_t ? t : "0", t_unit, temperature_of, &station->t)) &&
           read_quality(table, fields[table->at[X]], station) &&
           read_role(table, fields[table->at[ROLE]], station);
}

// Takes the row over into the list, with copies of its texts.
static bool append(StationList* list, const Station* station) {
    if ((list->count & (list->count - 1)) == 0) {  // a power of two: the rows are full
        const size_t room = list->count == 0 ? 1 : 2 * list->count;
        Station* rows = realloc(list->rows, room * sizeof *rows);
        if (rows == NULL) {
            return false;
        }
        list->rows = rows;
    }
    Station* row = &list->rows[list->count++];
    *row = *station;
    row->name = strdup(station->name);
    row->note = strdup(station->note);
    return row->name != NULL && row->note != NULL;
}

// Reads line after line; false when memory runs out.
static bool read_lines(FILE* file, Table* table, StationList* list) {
    char line[max_line + 1], what[80];
    const char* line_start;
    bool header = false;
    for (LineKind kind; (kind = read_line(file, line, &table->line)) != LINE_NONE;) {
        line_start = line + strspn(line, " \t");
        if (*line_start == '#' || (kind == LINE_OK && *line_start == '\0')) {
            continue;  // a comment may hold anything
        }
        Station station;
        bool good = false;
        if (kind == LINE_TOO_LONG) {
            snprintf(what, sizeof what, "line longer than %d bytes", max_line);
            fault(table, what, line);
        } else if (kind == LINE_NOT_TEXT) {
            fault(table, "not a line of UTF-8 text", line);
        } else {
            good = header ? read_row(table, line, &station) : read_header(table, line);
        }
        list->faults += !good;
        if (good && header && !append(list, &station)) {
            return false;
        }
        if (!header && !good) {
            return true;  // without a header row no line after it has a meaning
        }
        header = true;
    }
    if (!ferror(file) && list->count == 0 && list->faults == 0) {
        table->line += table->line == 0;
        fault(table, header ? "no station after the header row" : "no header row", "end of file");
        ++list->faults;
    }
    return true;
}

bool read_stations(const char* file_name, StationList* list) {
    FILE* file = strcmp(file_name, "-") == 0 ? stdin : fopen(file_name, "r");
    if (file == NULL) {
        fprintf(stderr, "plant: cannot open %s: %s\n", file_name, strerror(errno));
        return false;
    }
    Table table = {.file = file == stdin ? "<stdin>" : file_name};
    bool done = read_lines(file, &table, list);
    if (!done) {
        fprintf(stderr, "plant: out of memory at %s:%d\n", table.file, table.line);
    } else if (ferror(file)) {
        fprintf(stderr, "plant: cannot read %s: %s\n", table.file, strerror(errno));
        done = false;
    }
    if (file != stdin) {
        fclose(file);
    }
    return done;
}

void free_stations(StationList* list) {
    for (size_t i = 0; i < list->count; ++i) {
        free(list->rows[i].name);
        free(list->rows[i].note);
    }
    free(list->rows);
}
