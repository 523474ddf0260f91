// SPDX-License-Identifier: MIT
// A host in C that opens the library late, which musl refuses to one of static thread-local storage: a thread older than
// the library has a code of its own, the initial thread has CODE.
//
//   late LIBRARY
#include <dlfcn.h>
#include <pthread.h>
#include <stdio.h>

static pthread_barrier_t loaded;
static double (*hopt)(const double*, const double*);
static int (*ecodetul)(void);
static int* code;

static void* fail(void* right) {
    const double dense = 200, t = 300;
    pthread_barrier_wait(&loaded);
    const int before = ecodetul();
    *(int*)right =
        before == 0 && hopt(&dense, &t) == -99999.0 && ecodetul() == -10055 && *code == 0;
    return NULL;
}

int main(int argc, char** argv) {
    pthread_t thread;
    int right = 0;
    if (argc != 2 || pthread_barrier_init(&loaded, NULL, 2) != 0 ||
        pthread_create(&thread, NULL, fail, &right) != 0)
        return 2;
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (library == NULL) return fputs(dlerror(), stderr), 2;
    *(void**)&hopt = dlsym(library, "HOPT");
    *(void**)&ecodetul = dlsym(library, "ECODETUL");
    code = dlsym(library, "CODE");
    pthread_barrier_wait(&loaded);
    pthread_join(thread, NULL);
    const double cold = 100;
    double (*pot)(const double*) = NULL;
    *(void**)&pot = dlsym(library, "POT");
    pot(&cold);
    return right && *code == -10019 && ecodetul() == -10019 ? 0 : 1;
}
