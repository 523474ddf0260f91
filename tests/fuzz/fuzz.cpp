// SPDX-License-Identifier: MIT
// Any bits as the arguments of any export of one arity, VAPRIX_ARITY. It answers soon, with a result or one
// of its documented refusals and the code that goes with it, the same when it is asked again, leaves
// its arguments as they are and raises no invalid, zero-divide or overflow flag.
#include <fenv.h>
#include <time.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <utility>

#include "input.hpp"
#include "split.hpp"
#include "strata.hpp"

extern "C" {
int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t most);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t most,
                                    unsigned seed);
}

namespace {

using namespace bound;

// A line of what refusals.py writes.
struct Documented {
    bool checked = true, checked_if_given = true, zero = false, below = false, infinite = false,
         thin = false, any = false;
    std::vector<std::pair<double, int>> refusals;
};

std::map<std::string, Documented> read_documented() {
    std::map<std::string, Documented> all;
    std::ifstream list(VAPRIX_REFUSALS);
    for (std::string line; std::getline(list, line);) {
        const Texts words = split(line, ' ');
        Documented& one = all[words.at(0)];
        for (const std::string& word : words) {
            if (word == "unchecked") one.checked = one.checked_if_given = false;
            if (word == "given") one.checked_if_given = false;
            if (word == "zero") one.zero = true;
            if (word == "below") one.below = true;
            if (word == "infinite") one.infinite = true;
            if (word == "thin") one.thin = true;
            if (word == "any") one.any = true;
            if (const auto colon = word.find(':'); colon != std::string::npos) {
                const std::string code = word.substr(colon + 1);
                one.refusals.emplace_back(std::stod(word),
                                          code == "-" ? untouched : std::stoi(code));
            }
        }
    }
    return all;
}

bool same(double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); }

bool is_documented(const Documented& by, double value, int code) {
    for (const auto& [refused, stored] : by.refusals)
        if (same(value, refused) && code == stored) return true;
    if (code != untouched && !(by.zero && code == 0)) return false;
    if (!std::isfinite(value)) return by.infinite;
    const bool like_a_failure = value == failed || value == 1e3 * failed || value == 1e6 * failed;
    return value > -99998 || (by.below && !like_a_failure);
}

// Where (dp/dd)_T is 0 but for rounding, T within 1e-4 K of the critical temperature, by each variable.
bool near_critical(Name of, double value) {
    constexpr Values critical{22.064, 647.096, 1 / 322.0, 322, 2087.5, 4.412};
    const double width = of == T ? 2e-7 : of == p ? 1e-5 : 0.1;
    return std::fabs(value / critical[of] - 1) < width;
}

// The processor's time of this thread, s: it does not run while others do.
double seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

constexpr int watched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
constexpr double longest = 0.5;  // s; with sanitizers a search takes less than a millisecond

struct Outcome {
    double value, result;  // returned, and written
    int region, code, flags;
    double seconds;
};

Outcome call(const Export& function, const Values& at, int region, int code_before) {
    Pointers in;
    for (unsigned k = 0; k < names; ++k) in[k] = &at[k];
    Outcome all{.value = 0, .result = unwritten, .region = region};
    code() = code_before;
    const double start = seconds();
    feclearexcept(FE_ALL_EXCEPT);
    all.value = function(in, &all.region, &all.result);
    all.flags = fetestexcept(watched);
    all.seconds = seconds() - start;
    all.code = code() == code_before ? untouched : code();
    return all;
}

}  // namespace

// An argument moves by some units of its last place, by a small part, or to an odd number; or bits do.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t most,
                                    unsigned seed) {
    strata::Random random(seed);
    fuzz::Input input;
    if (random.coin() || most < sizeof input) return LLVMFuzzerMutate(bytes, size, most);
    std::memcpy(&input, bytes, std::min(size, sizeof input));
    double& moved = input.arguments[static_cast<std::size_t>(random.integer(0, VAPRIX_ARITY - 1))];
    const int kind = random.integer(0, 2);
    moved = kind == 0   ? strata::steps(moved, random.integer(-9, 9))
            : kind == 1 ? moved * (1 + random.offset(1e-15, 0.5))
                        : random.one_of({infinity, -infinity, 0, -0.0, 5e-324, -5e-324, 1e-308,
                                         1e-100, 1, -1, 322, 1e100, 1.7e308, -1.7e308});
    std::memcpy(bytes, &input, sizeof input);
    return sizeof input;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const auto functions = fuzz::of_arity(VAPRIX_ARITY);
    static const auto documented = read_documented();
    fuzz::Input input;
    std::memcpy(&input, bytes, std::min(size, sizeof input));
    const Export& function = *functions[input.which % functions.size()];
    const Documented& by = documented.at(function.name);

    // Comparing a NaN raises a flag, and so does dividing by what has no reciprocal.
    Values at{};
    bool flagged = false, critical = by.any;
    for (std::size_t k = 0; k < VAPRIX_ARITY; ++k) {
        const double argument = at[function.inputs[k]] = input.arguments[k];
        critical = critical && near_critical(function.inputs[k], argument);
        flagged = flagged || std::isnan(argument) || (by.thin && std::fabs(argument) < 1e-306);
    }
    const Values given = at;
    const Outcome first = call(function, at, input.region, untouched);
    const Outcome again = call(function, at, input.region, untouched + 1);

    const bool checked = function.region && input.region != 0 ? by.checked_if_given : by.checked;
    const auto expect = [&](bool good, const char* what) {
        if (good) return;
        std::printf("%s region=%d: %s; %.17g, code %d, region %d, flags %#x, %g s\n",
                    digits(function, given).c_str(), input.region, what, first.value, first.code,
                    first.region, static_cast<unsigned>(first.flags), first.seconds);
        std::fflush(stdout);
        std::abort();
    };
    expect(std::memcmp(&at, &given, sizeof at) == 0, "writes an argument");
    expect(input.region == 0 || first.region == input.region, "writes a region that was given");
    expect(input.region != 0 || (first.region >= 0 && first.region <= 9), "writes no region");
    expect(same(first.value, again.value) && same(first.result, again.result) &&
               first.region == again.region && first.code == again.code,
           "answers otherwise when asked again");
    expect(std::min(first.seconds, again.seconds) < longest, "takes long");
    if (checked) {
        expect(critical || is_documented(by, first.value, first.code), "is not documented");
        expect(critical || flagged || first.flags == 0, "raises a flag");
    } else {
        expect(first.code == untouched, "stores a code");
    }
    return 0;
}
