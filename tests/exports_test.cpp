// SPDX-License-Identifier: MIT
// All exports at all states: they read their arguments and nothing beside them, write none but a
// region and a result, raise no invalid, zero-divide or overflow flag, succeed or refuse with it,
// and leave the code alone when they succeed.
#include <fenv.h>
#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <regex>
#include <string>

#include "bound.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using namespace strata;

constexpr int watched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

// A value whose last byte is the last before a page without access, on a page that may only be read
// while an export has it.
template <class Type>
class Guarded {
public:
    explicit Guarded(bool written = false) : written_(written) {
        void* pages =
            mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) throw std::bad_alloc();
        base_ = static_cast<char*>(pages);
        protect(page_, PROT_NONE);
    }
    ~Guarded() { munmap(base_, 2 * page_); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;
    Type* hold(Type value) {
        if (!written_) protect(0, PROT_READ | PROT_WRITE);
        std::memcpy(place(), &value, sizeof value);
        if (!written_) protect(0, PROT_READ);
        return place();
    }

private:
    Type* place() const { return reinterpret_cast<Type*>(base_ + page_ - sizeof(Type)); }
    void protect(std::size_t offset, int protection) {
        if (mprotect(base_ + offset, page_, protection) != 0) throw std::bad_alloc();
    }
    const std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const bool written_;
    char* base_ = nullptr;
};

class EveryExport {
public:
    // Visits the answer of each export that is meant for the state's region.
    template <class Visit>
    void call(const Values& at, int region_of_state, const Visit& visit) {
        Pointers in;
        for (unsigned k = 0; k < names; ++k) in[k] = arguments_[k].hold(at[k]);
        for (const Export& each : exports()) {
            if (!each.is_for(region_of_state)) continue;
            code() = untouched;
            double* const result = out_.hold(0);
            int* const region = region_.hold(0);
            feclearexcept(FE_ALL_EXCEPT);
            const double value = each(in, region, result);
            visit(each, value);
            // A region that is given is only read.
            if (each.region && !each.out && *region > 0 && *region < 9) {
                const int given = *region;
                EXPECT_EQ(each(in, given_.hold(given), result), value) << digits(each, at);
            }
        }
    }

private:
    std::array<Guarded<double>, names> arguments_;
    Guarded<double> out_{true};
    Guarded<int> region_{true}, given_{false};
};

void expect_clean(const Export& each, const Values& at, double value) {
    const int raised = fetestexcept(watched);
    EXPECT_EQ(raised, 0) << digits(each, at) << " raises "
                         << (raised & FE_INVALID ? "invalid " : "")
                         << (raised & FE_DIVBYZERO ? "zero-divide " : "")
                         << (raised & FE_OVERFLOW ? "overflow" : "");
    static const std::regex stores_success("FUGOPT|[HS]VAPOT|(H|S|CP|CV|W|U|F|G)OPT");
    const bool answered = std::isfinite(value) && value > -99998;
    EXPECT_TRUE(!answered || code() == untouched ||
                (code() == 0 && std::regex_match(each.name, stores_success)))
        << digits(each, at) << " stores " << code() << " with " << value;
}

template <class Visit>
void each_state(const Visit& visit) {
    sweep(0.002, 500, [&](const Stratum&, const State& at) { visit(at, at.region); });
}

TEST(EveryExport, AtEveryState) {
    EveryExport every;
    each_state([&](const Values& at, int region) {
        every.call(at, region,
                   [&](const Export& each, double value) { expect_clean(each, at, value); });
    });
}

// Refusals raise none either.
TEST(EveryExport, AtNoState) {
    EveryExport every;
    Random random(520);
    for (int k = states(0.01); k > 0; --k) {
        const Values at = no_state(random);
        every.call(at, 0, [&](const Export& each, double value) { expect_clean(each, at, value); });
    }
}

// Under traps, which also catch a flag that is raised and cleared again.
TEST(EveryExportDeathTest, HostThatTraps) {
    EXPECT_EXIT(
        {
            EveryExport every;
            each_state([&](const Values& at, int region) {
                feclearexcept(FE_ALL_EXCEPT);
                feenableexcept(watched);
                every.call(at, region, [](const Export&, double) {});
                fedisableexcept(watched);
            });
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
