// SPDX-License-Identifier: MIT
//
// A block of lines answered: the same lines with the added cells, and what was wrong.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plan.hpp"

namespace vaprix::cli {

struct Problem {
    std::size_t line;  // from 0 in the block
    std::string reason;
};

struct Answered {
    std::vector<char> text;
    std::vector<Problem> problems;  // of the first most_problems bad rows
    std::size_t lines = 0, rows = 0, bad_rows = 0;
};

class Rows {
public:
    Rows(const Plan& plan, int digits, std::size_t most_problems);
    void answer(std::string_view block, Answered& out);

private:
    struct Row {
        Line line;
        std::size_t columns;  // that it has
        bool is_row, is_good;
    };
    void read(Row& row, std::size_t k);
    void write(const Row& row, std::size_t k, Answered& out);
    char* write_number(char* to, double value) const noexcept;
    std::string what_is_wrong(const Row& row) const;

    const Plan& plan_;
    const int digits_;  // 0: as many as there are
    const std::size_t most_problems_;
    Evaluation evaluation_;
    std::vector<Row> rows_;
};

}  // namespace vaprix::cli
