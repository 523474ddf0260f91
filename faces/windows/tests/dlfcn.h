/* SPDX-License-Identifier: MIT */
/* Libraries opened by file name, as the test programs know it from POSIX, by LoadLibrary and GetProcAddress. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

enum { RTLD_NOW, RTLD_LOCAL = 0 };
void* dlopen(const char* path, int mode);
void* dlsym(void* library, const char* name);
int dlclose(void* library);
char* dlerror(void);

#ifdef __cplusplus
}
#endif
