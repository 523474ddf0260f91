// SPDX-License-Identifier: MIT
#include "frame/error_code.hpp"

#include <sys/syscall.h>
#include <unistd.h>

// The initial thread's code, a data symbol that a host may read directly. Every other thread has a
// copy of its own, reached through ECODETUL only.
extern "C" __attribute__((visibility("default"))) int CODE;
int CODE = 0;

namespace vaprix {
namespace {

// Static thread-local storage: set aside when the thread starts, so that not even the first failure
// of a thread allocates, wherever the library was loaded.
__attribute__((tls_model("initial-exec"))) thread_local int own_code = 0;
__attribute__((tls_model("initial-exec"))) thread_local int* slot = nullptr;

// The initial thread is the one whose id is the process's, no matter which thread loaded the
// library.
bool is_initial_thread() noexcept { return syscall(SYS_gettid) == getpid(); }

// A child process of another thread takes the initial thread's place with the parent's CODE, which
// is not its own: it starts with 0.
int& code_of_this_thread() noexcept {
    if (slot == nullptr) slot = is_initial_thread() ? &(CODE = 0) : &own_code;
    return *slot;
}

}  // namespace

int error_code() noexcept { return code_of_this_thread(); }

void store(ErrorCode code) noexcept { code_of_this_thread() = static_cast<int>(code); }

double fail(ErrorCode code) noexcept {
    store(code);
    return failed;
}

}  // namespace vaprix
