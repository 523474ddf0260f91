// SPDX-License-Identifier: MIT
#include "csv.h"

#include <errno.h>
#include <math.h>
#include <stdbool.h>
#include <stdlib.h>
#include <string.h>

// Length of the UTF-8 character that starts here, 0 if none does.
static size_t utf8_length(const unsigned char* s) {
    const size_t length = s[0] < 0x80   ? 1
                          : s[0] < 0xC2 ? 0
                          : s[0] < 0xE0 ? 2
                          : s[0] < 0xF0 ? 3
                          : s[0] < 0xF5 ? 4
                                        : 0;
    for (size_t i = 1; i < length; ++i) {
        if ((s[i] & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

static bool is_control(unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; }

static bool is_text(const char* line, size_t length) {
    const unsigned char* s = (const unsigned char*)line;
    for (size_t i = 0, step; i < length; i += step) {
        step = utf8_length(s + i);
        if (step == 0 || is_control(s[i])) {
            return false;
        }
    }
    return true;
}

LineKind read_line(FILE* file, char line[max_line + 1], int* number) {
    static const char byte_order_mark[] = "\xEF\xBB\xBF";
    size_t length = 0;  // of the line in the file, of which max_line bytes are kept
    int c = getc(file);
    if (c == EOF) {
        return LINE_NONE;
    }
    for (; c != EOF && c != '\n'; c = getc(file)) {
        if (length < max_line) {
            line[length] = (char)c;
        }
        ++length;
    }
    if (ferror(file)) {
        return LINE_NONE;
    }
    ++*number;
    if (length > max_line) {
        line[max_line] = '\0';
        return LINE_TOO_LONG;
    }
    if (length > 0 && line[length - 1] == '\r') {
        --length;
    }
    line[length] = '\0';
    if (*number == 1 && length >= 3 && memcmp(line, byte_order_mark, 3) == 0) {
        length -= 3;
        memmove(line, line + 3, length + 1);
    }
    return is_text(line, length) ? LINE_OK : LINE_NOT_TEXT;
}

static char* skip_blanks(char* s) { return s + strspn(s, " \t"); }

// Unquotes the field that starts behind an opening quote; returns the place behind the closing one,
// NULL if there is none.
static char* unquote(char* s) {
    char* to = s;
    for (; *s != '\0'; *to++ = *s++) {
        if (*s == '"' && *++s != '"') {
            *to = '\0';
            return s;
        }
    }
    return NULL;
}

const char* split_fields(char* line, char* fields[max_fields], size_t* count) {
    char* s = line;
    for (*count = 0;;) {
        if (*count == max_fields) {
            fields[0] = s;
            return "too many fields";
        }
        s = skip_blanks(s);
        if (*s == '"') {
            fields[(*count)++] = s + 1;
            char* behind = unquote(s + 1);
            if (behind == NULL) {
                fields[0] = s;
                return "a quoted field does not end on its line";
            }
            s = skip_blanks(behind);
            if (*s != ',' && *s != '\0') {
                fields[0] = s;
                return "text behind a quoted field";
            }
        } else {
            fields[(*count)++] = s;
            char* end = s += strcspn(s, ",");
            while (end > fields[*count - 1] && (end[-1] == ' ' || end[-1] == '\t')) {
                --end;
            }
            if (end != s) {
                *end = '\0';
            }
        }
        if (*s == '\0') {
            return NULL;
        }
        *s++ = '\0';
    }
}

const char* parse_number(const char* text, double* value) {
    char* end;
    errno = 0;
    *value = strtod(text, &end);
    if (end == text || strspn(text, "+-.0123456789eE") < (size_t)(end - text)) {
        return "not a number";
    }
    if (*end != '\0') {
        return "trailing characters after a number";
    }
    return !isfinite(*value) || errno == ERANGE ? "number too large or too small" : NULL;
}

void write_field(FILE* out, const char* text) {
    if (strpbrk(text, ",\"# ") == NULL) {
        fputs(text, out);
        return;
    }
    putc('"', out);
    for (; *text != '\0'; ++text) {
        if (*text == '"') {
            putc('"', out);
        }
        putc(*text, out);
    }
    putc('"', out);
}

int text_width(const char* text) {
    int width = 0;
    for (; *text != '\0'; ++text) {
        width += ((unsigned char)*text & 0xC0) != 0x80;
    }
    return width;
}

void report_line(const char* file, int line, const char* fault, const char* text) {
    enum { longest = 60 };
    fprintf(stderr, "%s:%d: %s (", file, line, fault);
    const unsigned char* s = (const unsigned char*)text;
    size_t written = 0;
    while (*s != '\0' && written < longest) {
        const size_t step = is_control(*s) ? 0 : utf8_length(s);
        if (step == 0) {
            fprintf(stderr, "\\x%02X", (unsigned)*s);
        } else {
            fprintf(stderr, "%.*s", (int)step, (const char*)s);
        }
        written += step == 0 ? 4 : step;
        s += step == 0 ? 1 : step;
    }
    fputs(*s == '\0' ? ")\n" : "...)\n", stderr);
}
