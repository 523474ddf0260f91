/* SPDX-License-Identifier: MIT */
#include "dlfcn.h"

#include <stdint.h>
#include <stdio.h>
#include <windows.h>

void* dlopen(const char* path, int mode) {
    (void)mode;
    return LoadLibraryA(path);
}

void* dlsym(void* library, const char* name) {
    return (void*)(intptr_t)GetProcAddress(library, name);
}

int dlclose(void* library) { return FreeLibrary(library) ? 0 : -1; }

char* dlerror(void) {
    static char text[32];
    snprintf(text, sizeof text, "error %lu", GetLastError());
    return text;
}
