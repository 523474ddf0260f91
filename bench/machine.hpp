// SPDX-License-Identifier: MIT
//
// What a figure was measured on, for the head of every report.
#pragma once

#include <fstream>
#include <string>

// Processor, compiler and flags, as a Markdown list.
inline std::string machine() {
    std::string processor = "unknown";
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (line.rfind("model name", 0) != 0) continue;
        processor = line.substr(line.find(':') + 2);
        break;
    }
#ifdef __clang__
    const std::string compiler = __VERSION__;
#else
    const std::string compiler = "g++ " __VERSION__;
#endif
    return "- processor: " + processor + "\n- compiler: " + compiler +
           "\n- flags: `" BENCH_FLAGS "`\n";
}
