// SPDX-License-Identifier: MIT
#include "layout.hpp"

#include <algorithm>
#include <cstdio>

namespace vaprix::cli {
namespace {

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

bool is_number(std::string_view cell) {
    return cell == "-" ||
           (!cell.empty() && cell.find_first_not_of("+-.0123456789e") == std::string_view::npos);
}

// Characters before the decimal point.
std::size_t whole(std::string_view number) {
    return std::min(number.find_first_of(".e"), number.size());
}

struct Column {
    bool numbers = true;
    std::size_t before = 0, after = 0, width = 0;
};

Column measured(const Table& table, std::size_t k) {
    Column out;
    for (const auto& row : table.rows) out.numbers = out.numbers && is_number(row[k]);
    out.width = characters(table.head[k]);
    for (const auto& row : table.rows) {
        const std::size_t before = out.numbers ? whole(row[k]) : characters(row[k]);
        out.before = std::max(out.before, before);
        out.after = std::max(out.after, out.numbers ? row[k].size() - before : 0);
    }
    out.width = std::max(out.width, out.before + out.after);
    return out;
}

}  // namespace

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t size = characters(text);
    return std::string(text) + std::string(width > size ? width - size : 0, ' ');
}

void print(const Table& table) {
    std::vector<Column> columns;
    for (std::size_t k = 0; k < table.head.size(); ++k) columns.push_back(measured(table, k));
    std::size_t width = 0;
    for (const Column& column : columns) width += column.width + 2;
    if (width > terminal_width + 2) columns.pop_back();
    const auto print_row = [&](const std::vector<std::string>& row, bool is_head) {
        std::string line;
        for (std::size_t k = 0; k < columns.size(); ++k) {
            const Column& column = columns[k];
            std::string cell;
            if (column.numbers && is_head)
                cell.append(column.width - characters(row[k]), ' ');
            else if (column.numbers)
                cell.append(column.width - column.after - whole(row[k]), ' ');
            line += padded(cell + row[k], column.width) + "  ";
        }
        line.resize(line.find_last_not_of(' ') + 1);
        std::puts(line.c_str());
    };
    if (std::any_of(table.head.begin(), table.head.end(),
                    [](const auto& cell) { return !cell.empty(); }))
        print_row(table.head, true);
    for (const auto& row : table.rows) print_row(row, false);
}

std::string hanging(std::string_view text, std::size_t indent) {
    std::string out;
    std::size_t column = indent;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        const std::string_view word = text.substr(0, end);
        if (column > indent && column + 1 + word.size() > terminal_width) {
            out += '\n' + std::string(indent, ' ');
            column = indent;
        } else if (column > indent) {
            out += ' ';
            ++column;
        }
        out += word;
        column += word.size();
        if (end < text.size() && text[end] == '\n') {
            out += '\n' + std::string(indent, ' ');
            column = indent;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out;
}

}  // namespace vaprix::cli
