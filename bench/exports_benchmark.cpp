// SPDX-License-Identifier: MIT
//
// Cost of each export through its exported symbol, over random states of its region; beside it the
// term-by-term evaluation of the same equation, and the floor, in the same run. Prints Markdown.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "machine.hpp"
#include "rows.hpp"

namespace {

std::string title(const Row& row) { return std::string(row.name) + "/" + name_of(row.set); }

// Median of the repetitions of each loop, ns a call of processor time. Loops that rows share are
// measured once.
class Medians : public benchmark::BenchmarkReporter {
    std::map<Loop, std::map<Set, std::string>> names;
    std::map<std::string, double> ns;

public:
    void measure(Loop loop, const Row& row, const char* what) {
        if (loop == nullptr) return;
        std::string& name = names[loop][row.set];
        if (!name.empty()) return;
        name = title(row) + what;
        const std::vector<State>& all = states(row.set);
        benchmark::RegisterBenchmark(name.c_str(), [loop, &all](benchmark::State& run) {
            loop(run, all);
        })->MinTime(0.05);
    }

    // 0 where nothing was measured.
    double of(Loop loop, Set set) const {
        return loop == nullptr ? 0 : ns.at(names.at(loop).at(set));
    }

    bool ReportContext(const Context& /* context */) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<double> times;
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) times.push_back(run.GetAdjustedCPUTime());
        }
        if (times.empty()) return;
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        const std::string& name = runs[0].run_name.function_name;
        ns[name] = *middle;
        std::fprintf(stderr, "%10.1f ns  %s\n", *middle, name.c_str());
    }
};

std::string cell(double value, int digits) {
    if (!(value > 0)) return "-";
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

void print_table(const std::vector<Row>& table, const Medians& ns) {
    std::puts("| export | states | ns a call | times faster than term by term | times the floor |");
    std::puts("|---|---|---|---|---|");
    for (const Row& row : table) {
        const double own = ns.of(row.library, row.set);
        const double floor = ns.of(row.floor, row.set);
        std::printf("| `%s` | %s | %s | %s | %s |\n", row.name, name_of(row.set),
                    cell(own, 1).c_str(), cell(ns.of(row.baseline, row.set) / own, 1).c_str(),
                    cell(floor > 0 ? own / floor : 0, 2).c_str());
    }
}

// The weighted mix as one figure, if all of it was measured.
void print_mix(const std::vector<Row>& table, const Medians& ns) {
    double own = 0;
    double baseline = 0;
    double floor = 0;
    double percent = 0;
    for (const Share& share : mix) {
        const auto row = std::find_if(table.begin(), table.end(), [&](const Row& a) {
            return a.set == share.set && std::string_view(a.name) == share.name;
        });
        if (row == table.end()) return;
        own += share.percent * ns.of(row->library, row->set);
        baseline += share.percent * ns.of(row->baseline, row->set);
        floor += share.percent * ns.of(row->floor, row->set);
        percent += share.percent;
    }
    std::printf(
        "\nMix weighted by frequency of use (IAPWS R7-97(2012), Tables 45 and 46): %.1f ns a call, "
        "%.1f times faster than term by term, %.2f times the floor.\n",
        own / percent, baseline / own, own / floor);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    const std::string given = benchmark::GetBenchmarkFilter();
    const std::regex filter(given.empty() ? "." : given);

    std::vector<Row> table;
    Medians medians;
    for (const Row& row : rows()) {
        if (!std::regex_search(title(row), filter)) continue;
        table.push_back(row);
        medians.measure(row.library, row, "");
        medians.measure(row.baseline, row, ", term by term");
        medians.measure(row.floor, row, ", floor");
    }
    benchmark::RunSpecifiedBenchmarks(&medians, ".");
    std::printf("%s\n", machine().c_str());
    print_table(table, medians);
    print_mix(table, medians);
    benchmark::Shutdown();
}
