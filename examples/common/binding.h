// SPDX-License-Identifier: MIT
// The property library opened by file name and bound by name: nothing of it is linked or included.
#ifndef EXAMPLES_BINDING_H
#define EXAMPLES_BINDING_H

#include <stdbool.h>

typedef void AnyFunction(void);  // to be cast to the type the name has

typedef struct {
    const char *program, *path;  // for messages
    void* handle;
    bool complete;  // every name asked for so far was found
} Binding;

// Opens the library, which stays open, or says on stderr what failed.
bool open_binding(const char* program, const char* path, Binding* binding);

// The function, or NULL, a message on stderr and `complete` gone.
AnyFunction* bind_name(Binding* binding, const char* name);

#endif
