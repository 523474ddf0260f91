// SPDX-License-Identifier: MIT
#include <cstring>

#include "vaprix_arrays.h"

const char* vaprix_arrays_instruction_set(const char* force) noexcept {
    constexpr const char* in_use = "scalar";
    return force == nullptr || std::strcmp(force, in_use) == 0 ? in_use : nullptr;
}
