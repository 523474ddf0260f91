// SPDX-License-Identifier: MIT
// The functions over arrays against the calls one by one: bits of the results, regions and codes of
// every export, over the strata and what belongs to no state, in every shape of a call and by every
// instruction set that the machine has.
// States an export: 2000, or the environment variable VAPRIX_ARRAYS_STATES.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iomanip>
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "bound.hpp"
#include "strata.hpp"

namespace {

using bound::Export;
using strata::Random;

void* symbol(const std::string& name) {
    static void* const library = dlopen(VAPRIX_ARRAYS_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    void* const found = library == nullptr ? nullptr : dlsym(library, name.c_str());
    if (found == nullptr) throw std::runtime_error(dlerror());
    return found;
}

const std::vector<strata::State>& states() {
    static const std::vector<strata::State> all = [] {
        const char* const text = std::getenv("VAPRIX_ARRAYS_STATES");
        std::vector<strata::State> made(text == nullptr ? 2000 : std::stoul(text));
        Random random(20260);
        for (std::size_t k = 0; k < made.size(); ++k) {
            if (k % 5 == 4) {
                static_cast<bound::Values&>(made[k]) = strata::no_state(random);
            } else {
                const std::size_t stratum = k / 5 * 4 + k % 5;
                made[k] = state(strata::strata[stratum % strata::strata.size()].sample(random));
            }
        }
        return made;
    }();
    return all;
}

template <class Number>
bool same(Number a, Number b) {
    if constexpr (std::is_same_v<Number, double>) {
        if (std::isnan(a)) return std::isnan(b);  // whatever its sign
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    } else {
        return a == b;
    }
}

// Elements among numbers that are not to be touched.
template <class Number>
class Column {
    std::ptrdiff_t step_;
    std::vector<Number> memory_;
    std::ptrdiff_t first_;

public:
    static constexpr Number untouched = -77;
    // `margin` is any: an array begins wherever a number may.
    Column(std::size_t n, std::ptrdiff_t step, int margin)
        : step_(step),
          memory_(n * static_cast<std::size_t>(std::abs(step)) + 40, untouched),
          first_(margin + (step < 0 ? (1 - static_cast<std::ptrdiff_t>(n)) * step : 0)) {}
    Number& operator[](std::size_t k) {
        return memory_[static_cast<std::size_t>(first_ + static_cast<std::ptrdiff_t>(k) * step_)];
    }
    [[nodiscard]] std::ptrdiff_t step() const { return step_; }
    [[nodiscard]] bool operator==(const Column& other) const {
        return std::equal(memory_.begin(), memory_.end(), other.memory_.begin(), same<Number>);
    }
};

struct Operand {
    void* at;
    std::ptrdiff_t step;
};
template <class Number>
Operand operand(Column<Number>& column) {
    return {&column[0], column.step()};
}

// An export of one to five operands.
void call(void* function, std::size_t n, const std::vector<Operand>& all, std::int32_t* code) {
    const auto with = [&](const auto&... each) {
        const auto flat = std::tuple_cat(std::make_tuple(n), std::make_tuple(each.at, each.step)...,
                                         std::make_tuple(code));
        std::apply(
            [function](auto... flat_arguments) {
                reinterpret_cast<void (*)(decltype(flat_arguments)...)>(function)(
                    flat_arguments...);
            },
            flat);
    };
    switch (all.size()) {
        case 1: return with(all[0]);
        case 2: return with(all[0], all[1]);
        case 3: return with(all[0], all[1], all[2]);
        case 4: return with(all[0], all[1], all[2], all[3]);
        default: return with(all.at(0), all.at(1), all.at(2), all.at(3), all.at(4));
    }
}

// One call of n elements from a place in the list of states; plain: contiguous, with codes.
testing::AssertionResult answers_alike(const Export& each, std::size_t n, Random& random,
                                       bool plain) {
    std::string shape = each.name + ", " + std::to_string(n) + " elements, steps";
    const auto step = [&]() -> std::ptrdiff_t {
        const int one = plain ? 1 : static_cast<int>(random.one_of({1, 1, 0, 3, -1}));
        shape.append(1, ' ').append(std::to_string(one));
        return one;
    };
    const auto margin = [&random] { return random.integer(15, 22); };
    const std::size_t from = plain ? 0 : static_cast<std::size_t>(random.integer(0, 1 << 20));

    std::vector<Column<double>> inputs;
    for (std::size_t k = 0; k < each.inputs.size(); ++k) inputs.emplace_back(n, step(), margin());
    Column<int> region(n, each.region ? step() : 0, margin());
    Column<double> own(n, step(), margin());
    const bool overlaid = !plain && !inputs.empty() && random.coin();
    if (overlaid) shape += ", overlaid";
    Column<double>& result = overlaid ? inputs[from % inputs.size()] : own;
    Column<std::int32_t> code(n, 1, margin());
    const bool coded = plain || random.coin();
    for (std::size_t k = 0; k < n; ++k) {
        const strata::State& at = states()[(from + k) % states().size()];
        for (std::size_t input = 0; input < inputs.size(); ++input)
            inputs[input][k] = at[each.inputs[input]];
        region[k] = random.coin() ? 0 : random.coin() ? at.region : random.integer(1, 5);
    }

    // the calls one by one, on what stood in the arrays before
    std::vector<Column<double>> given = inputs;
    Column<double> expected = result;
    Column<int> region_given = region, expected_region = region;
    Column<std::int32_t> expected_code = code;
    for (std::size_t k = 0; k < n; ++k) {
        bound::Values at{};
        for (std::size_t input = 0; input < inputs.size(); ++input)
            at[each.inputs[input]] = given[input][k];
        const bound::Answer one = ask(each, at, region_given[k]);
        const bool is_written = !each.out || one.value != bound::unwritten;
        expected[k] = is_written ? one.value : result[k];
        if (each.region) expected_region[k] = one.region;
        if (coded) expected_code[k] = one.code == bound::untouched ? 0 : one.code;
    }

    std::vector<Operand> operands;
    for (Column<double>& input : inputs) operands.push_back(operand(input));
    if (each.region) operands.push_back(operand(region));
    operands.push_back(operand(result));
    call(symbol(each.name + "_array"), n, operands, coded ? &code[0] : nullptr);

    for (std::size_t k = 0; k < inputs.size(); ++k)
        if (&inputs[k] != &result && !(inputs[k] == given[k]))
            return testing::AssertionFailure() << shape << ": argument " << k << " is changed";
    if (!(result == expected)) {
        std::size_t k = 0;
        while (k < n && same(result[k], expected[k])) ++k;
        if (k == n) return testing::AssertionFailure() << shape << ": written beside results";
        return testing::AssertionFailure() << std::setprecision(17) << shape << ": element " << k
                                           << " is " << result[k] << ", not " << expected[k];
    }
    if (!(region == expected_region))
        return testing::AssertionFailure() << shape << ": regions differ";
    if (!(code == expected_code)) return testing::AssertionFailure() << shape << ": codes differ";
    return testing::AssertionSuccess();
}

// The names of vaprix_arrays.h; the library has those of its machine.
constexpr const char* instruction_sets[] = {"scalar", "SSE2", "AVX2", "AVX-512", "NEON"};
const char* instruction_set(const char* force) {
    return reinterpret_cast<const char* (*)(const char*)>(symbol("vaprix_arrays_instruction_set"))(
        force);
}

TEST(Arrays, AnswerAsTheCallsOneByOne) {
    for (const char* const name : instruction_sets) {
        if (instruction_set(name) == nullptr) {
            std::printf("not here: %s\n", name);
            continue;
        }
        SCOPED_TRACE(name);
        ASSERT_STREQ(instruction_set(nullptr), name);
        Random random(20261);
        for (const Export& each : bound::exports()) {
            if (each.name == "ECODETUL") continue;
            EXPECT_TRUE(answers_alike(each, states().size(), random, true));
            for (const std::size_t n : {0U, 1U, 7U, 511U, 512U, 513U, 1000U})
                for (int shape = 0; shape < 3; ++shape)
                    EXPECT_TRUE(answers_alike(each, n, random, false));
        }
    }
}

using Several = std::size_t (*)(std::size_t, const double*, std::ptrdiff_t, const double*,
                                std::ptrdiff_t, std::size_t, const char* const*, double* const*,
                                const std::ptrdiff_t*, std::int32_t* const*);

// All exports of the same arguments in one call.
TEST(Arrays, AnswerSeveralAsEachByItself) {
    const auto several = reinterpret_cast<Several>(symbol("vaprix_arrays_several"));
    std::map<std::vector<std::size_t>, std::vector<const Export*>> alike;
    for (const Export& each : bound::exports()) {
        const bool plain = !each.region && !each.out && !each.inputs.empty();
        if (plain && each.inputs.size() <= 2)
            alike[{each.inputs.begin(), each.inputs.end()}].push_back(&each);
    }
    ASSERT_GT(alike.size(), 20U);
    for (const auto& [inputs, exports] : alike) {
        const std::size_t n = 1000;
        std::vector<Column<double>> given, out, expected;
        std::vector<Column<std::int32_t>> code, expected_code;
        for (const std::size_t input : inputs) {
            given.emplace_back(n, 2, 17);
            for (std::size_t k = 0; k < n; ++k) given.back()[k] = states()[k][input];
        }
        for (std::size_t k = 0; k < exports.size(); ++k) {
            const std::ptrdiff_t step = k % 2 == 0 ? 1 : -3;
            out.emplace_back(n, step, 15);
            expected.emplace_back(n, step, 15);
            code.emplace_back(n, 1, 15);
            expected_code.emplace_back(n, 1, 15);
        }
        std::vector<const char*> names;
        std::vector<double*> outs;
        std::vector<std::ptrdiff_t> steps;
        std::vector<std::int32_t*> codes;
        for (std::size_t k = 0; k < exports.size(); ++k) {
            std::vector<Operand> operands;
            for (Column<double>& each : given) operands.push_back(operand(each));
            operands.push_back(operand(expected[k]));
            call(symbol(exports[k]->name + "_array"), n, operands, &expected_code[k][0]);
            names.push_back(exports[k]->name.c_str());
            outs.push_back(&out[k][0]);
            steps.push_back(out[k].step());
            codes.push_back(k % 3 == 0 ? nullptr : &code[k][0]);
        }
        const bool of_two = given.size() == 2;
        const auto ask = [&](std::size_t count) {
            return several(n, &given[0][0], 2, of_two ? &given[1][0] : nullptr, 2, count,
                           names.data(), outs.data(), steps.data(), codes.data());
        };
        ASSERT_EQ(ask(names.size()), names.size()) << names[0];
        for (std::size_t k = 0; k < exports.size(); ++k) {
            EXPECT_TRUE(out[k] == expected[k]) << names[k];
            EXPECT_TRUE(codes[k] == nullptr || code[k] == expected_code[k]) << names[k];
        }
        for (const char* const other : {"HBPTX", "ECODETUL", of_two ? "PBT" : "HBPT"}) {
            names.back() = other;
            EXPECT_EQ(ask(names.size()), names.size() - 1) << other;
        }
    }
}

TEST(Arrays, HaveNoCodeOfTheThread) {
    Column<int> codes(300, 2, 15), expected = codes;
    for (std::size_t k = 0; k < 300; ++k) expected[k] = 0;
    call(symbol("ECODETUL_array"), 300, {operand(codes)}, nullptr);
    EXPECT_TRUE(codes == expected);
}

TEST(Arrays, KeepTheInstructionSetWhereTheMachineHasNotThatAskedFor) {
    const std::string before = instruction_set(nullptr);
    EXPECT_EQ(instruction_set("none"), nullptr);
    EXPECT_EQ(instruction_set(nullptr), before);
}

}  // namespace
