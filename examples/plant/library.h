// SPDX-License-Identifier: MIT
// The property library, opened by file name and bound by name: nothing of it is linked or included.
#ifndef PLANT_LIBRARY_H
#define PLANT_LIBRARY_H

#include <stdbool.h>

typedef double OfPT(const double* p, const double* t);
typedef double OfP(const double* p);
typedef int ErrorCode(void);

enum { family_b, family_o, family_count };
enum { quantity_v, quantity_h, quantity_s, quantity_cp, quantity_w, quantity_count };

typedef struct {
    OfPT* region;
    OfPT* property[quantity_count][family_count];
    OfP* t_sat[family_count];  // saturation temperature, K
    ErrorCode* error_code;     // of the calling thread
} Library;

// Opens the library and binds every name, or says on stderr what failed. It stays open.
bool open_library(const char* path, Library* library);

#endif
