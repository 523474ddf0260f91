// SPDX-License-Identifier: MIT
// Lines and fields of a comma-separated text file, read without trusting it.
#ifndef EXAMPLES_CSV_H
#define EXAMPLES_CSV_H

#include <stddef.h>
#include <stdio.h>

enum { max_line = 1000, max_fields = 64 };

typedef enum { LINE_OK, LINE_TOO_LONG, LINE_NOT_TEXT, LINE_NONE } LineKind;

// Reads the next line without its end (LF or CR LF); `number` counts lines from 1. A byte order
// mark before the first line is dropped. LINE_NOT_TEXT: a control character, or bytes that are not
// UTF-8. LINE_NONE: end of file, or a read error, which ferror tells apart.
LineKind read_line(FILE* file, char line[max_line + 1], int* number);

// Splits the line in place into fields without surrounding blanks; a field may stand in double
// quotes, a quote inside it is written twice. Returns NULL, or what is wrong with the line, and
// then fields[0] is the text it is wrong with.
const char* split_fields(char* line, char* fields[max_fields], size_t* count);

// A plain decimal number and nothing else: no blanks, hexadecimal digits, nan or infinity. Returns
// NULL, or what is wrong with the text.
const char* parse_number(const char* text, double* value);

// Writes one field, in quotes where it needs them.
void write_field(FILE* out, const char* text);

// Characters, not bytes, of a UTF-8 text: what aligned columns need.
int text_width(const char* text);

// Reports `file:line: fault (text)` on stderr; unprintable bytes as \xNN, long texts cut short.
void report_line(const char* file, int line, const char* fault, const char* text);

#endif
