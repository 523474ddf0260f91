// SPDX-License-Identifier: MIT
//
// A table of T, s and d over pressures in even ratios and even enthalpies, written in blocks of rows as a NumPy array
// of float64, (pressures, enthalpies, 3): numpy.load(FILE, mmap_mode="r") opens it. NaN where there is no state.
//   property_table FILE [PRESSURES [ENTHALPIES]]   (default 10000 10000: 100,000,000 states, 2.4 GB)
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <vaprix_arrays.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double p_min = 0.001, p_max = 100;  // MPa
constexpr double h_min = 0, h_max = 4200;     // kJ/kg
constexpr const char* names[] = {"TOPH", "SOPH", "DOPH"};
constexpr std::size_t properties = std::size(names);

// n values from first to last, both included.
template <class Value>
std::vector<double> steps(std::size_t n, Value value) {
    std::vector<double> all(n);
    for (std::size_t i = 0; i < n; ++i) all[i] = value(n > 1 ? double(i) / double(n - 1) : 0.0);
    return all;
}

// One row: a step of 0 repeats the pressure, a step of 3 lays the properties of a state side by side.
void fill_row(double p, const std::vector<double>& h, std::vector<std::int32_t>& code,
              double* row) {
    constexpr std::ptrdiff_t apart[] = {properties, properties, properties};
    double* const out[] = {row, row + 1, row + 2};
    std::int32_t* const codes[] = {code.data(), nullptr, nullptr};
    vaprix_arrays_several(h.size(), &p, 0, h.data(), 1, properties, names, out, apart, codes);
    for (std::size_t k = 0; k < h.size(); ++k) {
        if (code[k] != 0)
            std::fill_n(row + properties * k, properties, std::numeric_limits<double>::quiet_NaN());
    }
}

// The head of a .npy file, version 1.0: its length is a multiple of 64.
std::string npy_head(std::size_t rows, std::size_t columns) {
    std::string text = "{'descr': '<f8', 'fortran_order': False, 'shape': (" +
                       std::to_string(rows) + ", " + std::to_string(columns) + ", " +
                       std::to_string(properties) + "), }";
    text.append(63 - (10 + text.size()) % 64, ' ').push_back('\n');
    const char length[] = {char(text.size() % 256), char(text.size() / 256)};
    return std::string("\x93NUMPY\x01\x00", 8) + std::string(length, 2) + text;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: property_table FILE [PRESSURES [ENTHALPIES]]\n");
        return 2;
    }
    const auto count = [&](int i) { return argc > i ? std::strtoul(argv[i], nullptr, 10) : 10000; };
    const auto pressures =
        steps(count(2), [](double x) { return p_min * std::pow(p_max / p_min, x); });
    const auto enthalpies = steps(count(3), [](double x) { return h_min + (h_max - h_min) * x; });
    const std::size_t row = properties * enthalpies.size();

    std::FILE* const file = std::fopen(argv[1], "wb");
    bool written = file != nullptr;
    const auto write = [&](const void* from, std::size_t bytes) {
        written = written && std::fwrite(from, 1, bytes, file) == bytes;
    };
    const std::string head = npy_head(pressures.size(), enthalpies.size());
    write(head.data(), head.size());

    // Each thread fills its rows of a block, which is then written: memory holds one block.
    const std::size_t threads = std::max(1U, std::thread::hardware_concurrency());
    constexpr std::size_t rows_each = 16;
    std::vector<double> block(threads * rows_each * row);
    const auto start = Clock::now();
    Clock::duration computing{};
    for (std::size_t first = 0; written && first < pressures.size(); first += threads * rows_each) {
        const std::size_t rows = std::min(threads * rows_each, pressures.size() - first);
        const auto begun = Clock::now();
        std::vector<std::thread> team;
        for (std::size_t t = 0; t < threads; ++t) {
            team.emplace_back([&, t] {
                std::vector<std::int32_t> code(enthalpies.size());
                for (std::size_t i = t; i < rows; i += threads)
                    fill_row(pressures[first + i], enthalpies, code, &block[i * row]);
            });
        }
        for (std::thread& each : team) each.join();
        computing += Clock::now() - begun;
        write(block.data(), rows * row * sizeof(double));
    }
    if (file != nullptr && std::fclose(file) != 0) written = false;
    if (!written) {
        std::perror(argv[1]);
        return 1;
    }
    const double states = double(pressures.size()) * double(enthalpies.size());
    const auto seconds = [](Clock::duration time) {
        return std::chrono::duration<double>(time).count();
    };
    std::printf(
        "%.0f states in %.2f s, of which the library %.2f s: %.1f ns a state on %zu threads (%s)\n",
        states, seconds(Clock::now() - start), seconds(computing),
        seconds(computing) * 1e9 / states, threads, vaprix_arrays_instruction_set(nullptr));
    return 0;
}
