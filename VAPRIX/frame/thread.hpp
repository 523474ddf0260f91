// SPDX-License-Identifier: MIT
//
// What the error code asks of the operating system: a word for each thread, and which thread is the
// process's first.
#pragma once

namespace vaprix::thread {

// The calling thread's word, 0 until it is set.
#ifdef _WIN32
struct Word {
    operator int() const noexcept;
    const Word& operator=(int word) const noexcept;
};
[[nodiscard]] inline Word word() noexcept { return {}; }
#else
using Word = int&;
// Not declared static (initial-exec), which C libraries other than glibc refuse in a library that is
// opened late; CMakeLists.txt says what becomes of it.
extern constinit thread_local int own;
[[nodiscard]] inline Word word() noexcept { return own; }
#endif

// Whether the calling thread is the process's initial one, no matter which thread loaded the library.
[[nodiscard]] bool is_initial() noexcept;

}  // namespace vaprix::thread
