// SPDX-License-Identifier: MIT
//
// The exports called over arrays, and what of their results is a failure.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables.hpp"

namespace vaprix::cli {

constexpr std::size_t most_arguments = 4;
constexpr std::size_t block_size = 256;  // elements that evaluate() takes at once

// Null if there is none.
const Export* find_export(std::string_view name) noexcept;
const Variable& variable_named(std::string_view name);
std::vector<std::string_view> words_of(std::string_view text);

// At most block_size elements, whose arguments are at[0], at[1], ... in the catalogue's units. `region`, if it is not
// null, is told the regions that the function determines.
void evaluate(const Export& function, std::size_t count, const double* const* at, double* result,
              std::int32_t* code, int* region = nullptr);

// Why a result is a failure: it is not finite, or one that the export refuses by.
bool is_failure(const Export& function, double result) noexcept;
std::optional<std::string> failure_of(const Export& function, double result, std::int32_t code);

}  // namespace vaprix::cli
