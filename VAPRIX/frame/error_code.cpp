// SPDX-License-Identifier: MIT
#include "frame/error_code.hpp"

#include "frame/thread.hpp"
#include "vaprix.h"

// The initial thread's code, a data symbol that a host may read directly. Every other thread has a
// code of its own, reached through ECODETUL only.
int CODE = 0;

namespace vaprix {
namespace {

// A thread's word: nothing yet; that it is the initial thread; or else its code less 1, below 0
// since no code is above 0.
constexpr int no_word = 0;
constexpr int initial_thread = 1;

// Whether CODE is the calling thread's, whose word is given.
// A child process of another thread takes the initial thread's place with the parent's CODE, which
// is not its own: it starts with 0.
bool has_initial_code(thread::Word word) noexcept {
    if (const int known = word; known != no_word) return known == initial_thread;
    const bool initial = thread::is_initial();
    if (initial) CODE = 0;
    word = initial ? initial_thread : -1;
    return initial;
}

}  // namespace

int error_code() noexcept {
    thread::Word word = thread::word();
    return has_initial_code(word) ? CODE : word + 1;
}

void store(ErrorCode code) noexcept {
    thread::Word word = thread::word();
    const int stored = static_cast<int>(code);
    if (has_initial_code(word)) {
        CODE = stored;
    } else {
        word = stored - 1;
    }
}

double fail(ErrorCode code) noexcept {
    store(code);
    return failed;
}

}  // namespace vaprix
