// SPDX-License-Identifier: MIT
//
// An export over arrays: block by block, each gathered into contiguous arrays on the stack, evaluated
// and written back.
#pragma once

#include <algorithm>
#include <type_traits>

#include "block.hpp"

namespace vaprix::arrays {

// Element k is at[k * step]: of `const Value` an argument, else what an export may read and write.
template <class Value>
struct Array {
    Value* at;
    std::ptrdiff_t step;
    static constexpr bool is_read = true, is_written = !std::is_const_v<Value>;

    [[nodiscard]] Value& operator[](std::size_t k) const noexcept {
        return at[static_cast<std::ptrdiff_t>(k) * step];
    }
};

template <class Value>
Array(Value*, std::ptrdiff_t) -> Array<Value>;

template <class Value>
struct Result : Array<Value> {
    static constexpr bool is_read = false;
};
template <class Value>
Result(Value*, std::ptrdiff_t) -> Result<Value>;

// The block of an array.
template <template <class> class Kind, class Value>
class Operand {
    using Number = std::remove_const_t<Value>;
    Kind<Value> array;
    Number repeated{};  // of a step of 0
    alignas(64) Number values[block_size];

public:
    explicit Operand(Kind<Value> given) noexcept : array(given) {}

    // The elements from `first`, contiguous: an argument in place where it is so already.
    // One copy of it serves all exports: it is called once a block.
    [[nodiscard, gnu::noinline]] Value* load(std::size_t first, std::size_t count) noexcept {
        if constexpr (!Kind<Value>::is_read) return values;
        if constexpr (!Kind<Value>::is_written) {
            if (array.step == 1 && count == block_size) return array.at + first;
        }
        if (array.step == 0) {
            if (first == 0) repeated = array[0];
            if (first == 0 || Kind<Value>::is_written) std::fill_n(values, padded(count), repeated);
            return values;
        }
        if (array.step == 1) {
            std::copy_n(array.at + first, count, values);
        } else {
            for (std::size_t k = 0; k < count; ++k) values[k] = array[first + k];
        }
        std::fill(values + count, values + padded(count), values[count - 1]);
        return values;
    }

    [[gnu::noinline]] void store([[maybe_unused]] std::size_t first,
                                 [[maybe_unused]] std::size_t count) noexcept {
        if constexpr (Kind<Value>::is_written) {
            if (array.step == 1) {
                std::copy_n(values, count, array.at + first);
            } else {
                for (std::size_t k = 0; k < count; ++k) array[first + k] = values[k];
            }
        }
    }
};

template <class Export, class... Operands>
void each_block(std::size_t n, std::int32_t* code, Operands&&... operands) noexcept {
    alignas(64) std::int32_t codes[block_size];
    for (std::size_t first = 0; first < n; first += block_size) {
        const std::size_t count = std::min(n - first, block_size);
        evaluate_block<Export>(count, codes, operands.load(first, count)...);
        (operands.store(first, count), ...);
        if (code != nullptr) std::copy_n(codes, count, code + first);
    }
}

// The elements of n, with their codes unless that is null.
template <class Export, class... Arrays>
void over(std::size_t n, std::int32_t* code, Arrays... arrays) noexcept {
    each_block<Export>(n, code, Operand(arrays)...);
}

}  // namespace vaprix::arrays
