// SPDX-License-Identifier: MIT
//
// Exports read their arguments and nothing beside them, and write none but a region: every argument
// here ends at the last byte before a page without access, on a page that may only be read.
// All pairs of strange values pass through, so this is also where nothing may crash or hang.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <iterator>
#include <new>
#include <vector>

#include <gtest/gtest.h>

#include "export_table.hpp"

namespace {

using namespace host;

template <class T>
class GuardedArgument {
public:
    explicit GuardedArgument(int protection) : protection_(protection) {
        void* pages =
            mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) throw std::bad_alloc();
        base_ = static_cast<std::byte*>(pages);
        protect(page_, PROT_NONE);
    }
    ~GuardedArgument() { munmap(base_, 2 * page_); }
    GuardedArgument(const GuardedArgument&) = delete;
    GuardedArgument& operator=(const GuardedArgument&) = delete;

    T* hold(T value) {
        protect(0, PROT_READ | PROT_WRITE);
        std::memcpy(place(), &value, sizeof value);
        protect(0, protection_);
        return place();
    }

private:
    T* place() const { return reinterpret_cast<T*>(base_ + page_ - sizeof(T)); }
    void protect(std::size_t offset, int protection) {
        if (mprotect(base_ + offset, page_, protection) != 0) throw std::bad_alloc();
    }

    const std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const int protection_;
    std::byte* base_;
};

std::vector<double> values() {
    std::vector<double> all(std::begin(bad_values), std::end(bad_values));
    all.insert(all.end(), {1e-6, 0.002, 3.0, 25.0, 100.0, 300.0, 650.0, 1500.0, 2800.0});
    return all;
}

TEST(ArgumentMemory, OneArgument) {
    GuardedArgument<double> argument(PROT_READ);
    for (const double value : values()) {
        for (const auto& row : saturation_line) row.call(argument.hold(value));
        for (const auto& row : unchecked) row.call(argument.hold(value));
        for (const auto& row : saturated_by) row.call(argument.hold(value));
    }
}

TEST(ArgumentMemory, TwoArguments) {
    GuardedArgument<double> first(PROT_READ), second(PROT_READ);
    leave(of_line);
    for (const double a : values()) {
        const double* x = first.hold(a);
        for (const double b : values()) {
            const double* y = second.hold(b);
            for (const auto& row : b_family) row.call(x, y);
            for (const auto& row : region_of_pt) row.call(x, y);
            for (const auto& row : inverse_b) row.call(x, y);
            for (const auto& row : inverse_region) row.call(x, y);
            for (const auto& row : hs_b) row.call(x, y);
            for (const auto& row : region_of_hs) row.call(x, y);
            for (const auto& row : natives) {
                EXPECT_NE(row.call(x, y), failed) << row.name << ' ' << a << ' ' << b;
            }
            EXPECT_EQ(ECODETUL(), of_line) << a << ' ' << b;
            for (const auto& row : o_family) row.call(x, y);
            for (const auto& row : density_of_tp) row.call(x, y);
            for (const auto& row : inverse_o) row.call(x, y);
            for (const auto& row : wet_steam) row.call(x, y);
            for (const auto& row : of_td) row.call(x, y);
            FUGOPT(x, y), FUGOTD(x, y);
            for (const auto& row : region_of_tv) row.call(x, y);
            for (const auto& row : solved) row.call(x, y);
            for (const auto& row : physical_o) row.call(x, y);
            for (const auto& row : physical_td) row.call(x, y);
            for (const auto& row : refractive_saturated) row.call(x, y);
            for (const auto& row : hs_o) row.call(x, y);
            leave(of_line);
        }
    }
}

TEST(ArgumentMemory, WavelengthAndWrittenResult) {
    GuardedArgument<double> first(PROT_READ), second(PROT_READ), third(PROT_READ);
    GuardedArgument<double> out(PROT_READ | PROT_WRITE);
    GuardedArgument<int> region(PROT_READ | PROT_WRITE);
    const double* z = third.hold(0.5);
    for (const double a : values()) {
        const double* x = first.hold(a);
        for (const double b : values()) {
            const double* y = second.hold(b);
            for (const auto& row : refractive_pt) row.call(x, y, z);
            for (const auto& row : refractive_td) row.call(x, y, z);
            DVISCDT(x, y, out.hold(0.0));
            DVISCDV(x, y, out.hold(0.0));
            VISCVT(x, z, y, region.hold(0), out.hold(0.0));
        }
    }
}

TEST(ArgumentMemory, RegionGiven) {
    GuardedArgument<double> p(PROT_READ), t(PROT_READ);
    GuardedArgument<int> region(PROT_READ | PROT_WRITE), region_to_read(PROT_READ);
    for (const double a : values()) {
        const double* x = p.hold(a);
        for (const double b : values()) {
            const double* y = t.hold(b);
            for (const auto& row : region_given) row.call(x, y, region.hold(0));
            for (const auto& row : inverse_given) row.call(x, y, region.hold(0));
            for (const int given : {1, 2, 3, 5, 9}) {  // a region given is not written
                int* held = region_to_read.hold(given);
                for (const auto& row : region_given) row.call(x, y, held);
                for (const auto& row : inverse_given) row.call(x, y, held);
            }
        }
    }
}

TEST(ArgumentMemory, DensityIteration) {
    GuardedArgument<double> p(PROT_READ), t(PROT_READ), start(PROT_READ), tolerance(PROT_READ);
    leave(of_line);
    for (const double d : {1e-6, 0.0, -1.0, infinity, bad_values[0]}) {
        const double* tol = tolerance.hold(d);
        for (const double c : values()) {
            const double* rho0 = start.hold(c);
            for (const double a : values()) {
                const double* x = p.hold(a);
                for (const double b : values()) {
                    EXPECT_NE(DITER3(x, t.hold(b), rho0, tol), failed)
                        << a << ' ' << b << ' ' << c << ' ' << d;
                }
            }
        }
    }
    EXPECT_EQ(ECODETUL(), of_line);
}

}  // namespace
