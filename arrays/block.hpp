// SPDX-License-Identifier: MIT
//
// How a block of elements is evaluated: by packs of lanes where the export has a plan, what that leaves
// one after the other by the export's own answer.
#pragma once

#include <cstddef>
#include <cstdint>

#include "exports/answer.hpp"
#include "packed.hpp"
#include "stored_code.hpp"

namespace vaprix::arrays {

// What an export of the catalogue with a resolver is known by; the others are known by their type only.
template <class resolver_of_state, const Answers& answer_rule, const auto& property_of_state>
struct Answered {
    using resolver = resolver_of_state;
    static constexpr const Answers& rule = answer_rule;
    static constexpr const auto& property_asked = property_of_state;
};

// An argument that is only read is given by value, one that is written by its place.
[[nodiscard]] inline double element(const double* at) noexcept { return *at; }
template <class Value>
[[nodiscard]] Value* element(Value* at) noexcept {
    return at;
}

// One element by the export's own answer, which stores its code at `stored`.
template <class Export, class... Values>
void evaluate_one(thread::Word& stored, std::int32_t& code, Values*... values) noexcept {
    stored = 0;
    Export::evaluate(element(values)...);
    code = stored;
}

// By a plan, from one or two variables of the state; what is left.
inline Elements answer_planned(const Plan& plan, std::size_t count, std::int32_t* code,
                               const double* x, const double* y, double* out) noexcept {
    Wanted wanted{&plan, out, code};
    answer_packed({&wanted, 1}, count, x, y);
    return wanted.left;
}
inline Elements answer_planned(const Plan& plan, std::size_t count, std::int32_t* code,
                               const double* x, double* out) noexcept {
    return answer_planned(plan, count, code, x, x, out);
}

// `count` elements, at most block_size, of the arguments in the resolver's order and the result, each
// contiguous, and their codes. No result overlays an argument, which may be read again once it is
// written.
template <class Export, class... Values>
void evaluate_block(std::size_t count, std::int32_t* code, Values*... values) noexcept {
    thread::Word stored = stored_code();
    if constexpr (requires(const Plan& plan) { answer_planned(plan, count, code, values...); }) {
        const Plan* const all = plans();
        if (all != nullptr && all[Export::number].divide != nullptr) {
            const Elements left = answer_planned(all[Export::number], count, code, values...);
            for_each(left, [&](std::size_t k) {
                evaluate_one<Export>(stored, code[k], (values + k)...);
            });
            return;
        }
    }
    for (std::size_t k = 0; k < count; ++k) {
        evaluate_one<Export>(stored, code[k], (values + k)...);
    }
}

}  // namespace vaprix::arrays

#include "array_exports.hpp"
