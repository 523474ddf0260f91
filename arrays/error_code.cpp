// SPDX-License-Identifier: MIT
//
// The error code as the functions over arrays need it: that of the element, in the thread's word, from
// where it is collected.
#include "frame/error_code.hpp"

#include "stored_code.hpp"

namespace vaprix {

int error_code() noexcept { return thread::word(); }

void store(ErrorCode code) noexcept { thread::word() = static_cast<int>(code); }

double fail(ErrorCode code) noexcept {
    store(code);
    return failed;
}

thread::Word arrays::stored_code() noexcept { return thread::word(); }

}  // namespace vaprix
