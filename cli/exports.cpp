// SPDX-License-Identifier: MIT
#include "exports.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "states.hpp"
#include "units.hpp"

namespace vaprix::cli {

const Export* find_export(std::string_view name) noexcept {
    const auto found = std::find_if(exports.begin(), exports.end(),
                                    [&](const Export& known) { return known.name == name; });
    return found == exports.end() ? nullptr : &*found;
}

const Variable& variable_named(std::string_view name) {
    const auto found = std::find_if(variables.begin(), variables.end(),
                                    [&](const Variable& known) { return known.name == name; });
    if (found == variables.end()) throw Error("no variable '" + std::string(name) + "'");
    return *found;
}

std::vector<std::string_view> words_of(std::string_view text) {
    std::vector<std::string_view> out;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        out.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out;
}

void evaluate(const Export& function, std::size_t count, const double* const* at, double* result,
              std::int32_t* code, int* region) {
    constexpr double unwritten =
        -99999;  // what an export that answers by an argument leaves where it fails
    std::array<int, block_size> regions{};
    std::array<Operand, most_arguments + 1> operands{};
    const std::vector<std::string_view> names = words_of(function.arguments);
    for (std::size_t k = 0; k < names.size(); ++k) {
        if (names[k] == "region") {
            std::transform(at[k], at[k] + count, regions.begin(), [](double number) {
                return number >= 0 && number <= 5 ? static_cast<int>(number) : -1;
            });
            operands[k] = {regions.data(), 1};
        } else {
            operands[k] = {const_cast<double*>(at[k]), 1};  // NOLINT: an argument is only read
        }
    }
    std::fill_n(result, count, unwritten);
    operands[names.size()] = {result, 1};
    function.over(count, operands.data(), code);
    if (region != nullptr) std::copy_n(regions.begin(), count, region);
}

bool is_failure(const Export& function, double result) noexcept {
    return !std::isfinite(result) ||
           std::any_of(function.refusals.begin(), function.refusals.end(),
                       [&](const Refusal& refusal) { return refusal.value == result; });
}

std::optional<std::string> failure_of(const Export& function, double result, std::int32_t code) {
    if (!is_failure(function, result)) return {};
    std::string_view reason = "no value there";
    for (const Refusal& refusal : function.refusals)
        if (refusal.value == result || (std::isnan(refusal.value) && std::isnan(result)))
            if (refusal.code == code || refusal.code == 0) reason = refusal.reason;
    if (code != 0) return meaning_of(code) + " (code " + std::to_string(code) + ")";
    return std::string(reason);
}

}  // namespace vaprix::cli
