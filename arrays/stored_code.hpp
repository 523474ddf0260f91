// SPDX-License-Identifier: MIT
#pragma once

#include "frame/thread.hpp"

namespace vaprix::arrays {

// Where a call stores its code: the calling thread's word.
[[nodiscard]] thread::Word stored_code() noexcept;

}  // namespace vaprix::arrays
