// SPDX-License-Identifier: MIT
//
// Several exports of the same states.
#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "vaprix_arrays.h"

#include "array.hpp"

namespace vaprix::arrays {

namespace {

// What the exports of a number from one or two numbers have in common.
struct Entry {
    using One = void (*)(thread::Word& stored, std::int32_t& code, const double* x, const double* y,
                         double* out) noexcept;

    const char* name;
    const char* arguments;
    std::size_t number;
    One one = nullptr;  // of x and y in the resolver's order; null: another kind of export
    bool of_two = false;
    bool reversed = false;  // the resolver takes the second argument first
};

template <class Export>
void one_of_one(thread::Word& stored, std::int32_t& code, const double* x, const double* /* y */,
                double* out) noexcept {
    evaluate_one<Export>(stored, code, x, out);
}
template <class Export>
void one_of_two(thread::Word& stored, std::int32_t& code, const double* x, const double* y,
                double* out) noexcept {
    evaluate_one<Export>(stored, code, x, y, out);
}

template <class Export>
constexpr Entry entry() {
    Entry made{Export::name, Export::arguments, Export::number};
    if constexpr (requires(double x, double* out) { Export::evaluate(x, out); }) {
        made.one = one_of_one<Export>;
    } else if constexpr (requires(double x, double* out) { Export::evaluate(x, x, out); }) {
        made.one = one_of_two<Export>;
        made.of_two = true;
        made.reversed = Export::reversed;
    }
    return made;
}

constexpr std::array entries = []<class... Exports>(exports::All<Exports...>) {
    return std::array<Entry, sizeof...(Exports)>{entry<Exports>()...};
}(exports::all);

const Entry* find(std::string_view name) noexcept {
    const auto* const found = std::find_if(entries.begin(), entries.end(),
                                           [name](const Entry& each) { return each.name == name; });
    return found == entries.end() || found->one == nullptr ? nullptr : found;
}

const Plan* plan_of(const Entry& entry) noexcept {
    const Plan* const all = plans();
    return all == nullptr || all[entry.number].divide == nullptr ? nullptr : &all[entry.number];
}

// What one pass answers.
constexpr std::size_t at_once = 8;
struct Output {
    const Entry* entry;
    Result<double> out;
    std::int32_t* code;  // or null
    const Plan* plan;    // or null
};

struct BlockOfAnswers {
    alignas(64) double out[block_size];
    std::int32_t code[block_size];
    Elements left;
};

// A block of them: those whose plans divide alike together, what is left one by one.
void answer_block(std::span<const Output> outputs, std::size_t count, const double* x,
                  const double* y, BlockOfAnswers* answers) noexcept {
    std::array<bool, at_once> done{};
    for (std::size_t k = 0; k < outputs.size(); ++k) {
        const Plan* const plan = outputs[k].plan;
        if (done[k]) continue;
        if (plan == nullptr) {
            answers[k].left = first_elements(count);
            continue;
        }
        std::array<Wanted, at_once> wanted;
        std::array<BlockOfAnswers*, at_once> of;
        std::size_t size = 0;
        for (std::size_t other = k; other < outputs.size(); ++other) {
            const Plan* const of_other = outputs[other].plan;
            if (of_other == nullptr || of_other->divide != plan->divide) continue;
            done[other] = true;
            of[size] = answers + other;
            wanted[size++] = {of_other, answers[other].out, answers[other].code, {}};
        }
        answer_packed({wanted.data(), size}, count, x, y);
        for (std::size_t each = 0; each < size; ++each) of[each]->left = wanted[each].left;
    }
    thread::Word stored = stored_code();
    for (std::size_t k = 0; k < outputs.size(); ++k) {
        for_each(answers[k].left, [&](std::size_t at) {
            outputs[k].entry->one(stored, answers[k].code[at], x + at, y + at, &answers[k].out[at]);
        });
    }
}

void answer(std::span<const Output> outputs, std::size_t n, Array<const double> x,
            Array<const double> y) noexcept {
    Operand xs(x), ys(y);
    BlockOfAnswers answers[at_once];
    for (std::size_t first = 0; first < n; first += block_size) {
        const std::size_t count = std::min(n - first, block_size);
        answer_block(outputs, count, xs.load(first, count), ys.load(first, count), answers);
        for (std::size_t k = 0; k < outputs.size(); ++k) {
            for (std::size_t at = 0; at < count; ++at)
                outputs[k].out[first + at] = answers[k].out[at];
            if (outputs[k].code != nullptr)
                std::copy_n(answers[k].code, count, outputs[k].code + first);
        }
    }
}

bool are_alike(const Entry* a, const Entry* b) noexcept {
    return a != nullptr && b != nullptr &&
           std::string_view(a->arguments) == std::string_view(b->arguments);
}

}  // namespace

}  // namespace vaprix::arrays

using namespace vaprix::arrays;

extern "C" std::size_t vaprix_arrays_several(std::size_t n, const double* x, std::ptrdiff_t x_step,
                                             const double* y, std::ptrdiff_t y_step,
                                             std::size_t count, const char* const* names,
                                             double* const* out, const std::ptrdiff_t* out_step,
                                             std::int32_t* const* code) noexcept {
    for (std::size_t k = 0; k < count; ++k) {
        if (!are_alike(find(names[k]), find(names[0])) || find(names[k])->of_two != (y != nullptr))
            return k;
    }
    const Array<const double> of_x{x, x_step};
    const Array<const double> of_y = y == nullptr ? of_x : Array<const double>{y, y_step};
    for (std::size_t first = 0; first < count; first += at_once) {
        std::array<Output, at_once> outputs;
        const std::size_t size = std::min(count - first, at_once);
        for (std::size_t k = 0; k < size; ++k) {
            const Entry* const entry = find(names[first + k]);
            outputs[k] = {entry,
                          {{out[first + k], out_step[first + k]}},
                          code == nullptr ? nullptr : code[first + k],
                          plan_of(*entry)};
        }
        const bool reversed = outputs[0].entry->reversed;
        answer({outputs.data(), size}, n, reversed ? of_y : of_x, reversed ? of_x : of_y);
    }
    return count;
}
