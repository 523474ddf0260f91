// SPDX-License-Identifier: MIT
//
// How a block of elements is evaluated: one after the other by the export's own answer, or by whatever
// takes the block over.
#pragma once

#include <cstddef>
#include <cstdint>

#include "exports/answer.hpp"
#include "stored_code.hpp"

namespace vaprix::arrays {

inline constexpr std::size_t block_size = 256;
// Up to the next multiple of it, the arrays of a block may be read and written beyond its elements;
// the arguments there are those of the last element.
inline constexpr std::size_t padding = 8;

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

// `count` elements, at most block_size, of the arguments in the resolver's order and the result, each
// contiguous, and their codes. No result overlays an argument, which may be read again once it is
// written. A specialisation, below, takes over the blocks of the exports that it is for, here the
// enthalpy of every answer rule:
//
//     template <class Export>
//         requires std::derived_from<Export, Answered<resolvers::of_pt_b, Export::rule, property::h>>
//     struct Block<Export> {
//         static void evaluate(std::size_t count, std::int32_t* code, const double* p,
//                              const double* t, double* out) noexcept;
//     };
template <class Export>
struct Block {
    template <class... Values>
    static void evaluate(std::size_t count, std::int32_t* code, Values*... values) noexcept {
        thread::Word stored = stored_code();
        for (std::size_t k = 0; k < count; ++k) {
            stored = 0;
            Export::evaluate(element(values + k)...);
            code[k] = stored;
        }
    }
};

}  // namespace vaprix::arrays

#include "array_exports.hpp"
