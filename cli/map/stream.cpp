// SPDX-License-Identifier: MIT
#include "stream.hpp"

#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <exception>
#include <mutex>
#include <thread>

#include "commands.hpp"
#include "files.hpp"
#include "rows.hpp"

namespace vaprix::cli {
namespace {

// How far it is, on a terminal, five times a second.
class Progress {
public:
    Progress(const File& in, const File& out)
        : size_(in.size()), is_shown_(::isatty(STDERR_FILENO) != 0 && !out.is_terminal()) {}
    void tell(std::size_t bytes, std::size_t rows) {
        bytes_ += bytes;
        rows_ += rows;
        const Clock::time_point now = Clock::now();
        if (!is_shown_ || now - told_ < std::chrono::milliseconds(200)) return;
        told_ = now;
        const double seconds = std::chrono::duration<double>(now - begun_).count();
        char text[100] = "";
        if (size_ > 0) {
            const auto done = static_cast<int>(std::min<std::size_t>(20, 20 * bytes_ / size_));
            std::snprintf(text, sizeof text, "[%.*s%*s] ", done, "####################", 20 - done,
                          "");
        }
        std::fprintf(stderr, "\r%s%.1f million rows, %.1f a second\033[K", text,
                     1e-6 * static_cast<double>(rows_),
                     1e-6 * static_cast<double>(rows_) / seconds);
    }
    void clear() const {
        if (is_shown_) std::fputs("\r\033[K", stderr);
    }

private:
    using Clock = std::chrono::steady_clock;
    const std::size_t size_;
    const bool is_shown_;
    const Clock::time_point begun_ = Clock::now();
    Clock::time_point told_ = begun_;
    std::size_t bytes_ = 0, rows_ = 0;
};

// As the first number that has a comma or a point shows.
bool guess_decimal_comma(std::string_view rest, const Plan& plan) {
    for (int lines = 0; lines < 1000 && !rest.empty(); ++lines) {
        const Line line = take_line(rest);
        if (line.is_passed_through()) continue;
        const std::vector<std::string> cells = cells_of(line.text, plan.dialect.separator);
        for (const Input& input : plan.inputs) {
            if (input.index >= cells.size()) continue;
            double value = 0;
            const std::string& cell = cells[input.index];
            const bool comma = cell.find(',') != std::string::npos;
            if ((comma || cell.find('.') != std::string::npos) && read_number(cell, comma, value))
                return comma;
        }
    }
    return false;
}

char separator_named(const std::string& name) {
    if (name == "tab" || name == "\\t") return '\t';
    if (name.size() != 1 || std::string_view("\"\n\r#.").find(name[0]) != std::string_view::npos)
        throw Error("'" + name + "' is no separator; write one character, or tab");
    return name[0];
}

class Map {
public:
    explicit Map(const MapOptions& options)
        : options_(options), in_(File::to_read(options.in)), lines_(in_) {}

    int run() {
        read_ahead();
        const std::string head = begin();
        out_.emplace(File::to_write(options_.out, in_));
        progress_.emplace(in_, *out_);
        out_->write(head);
        std::vector<std::jthread> workers;
        for (int k = jobs(); k > 0; --k) workers.emplace_back([this] { work(); });
        workers.clear();  // joined
        progress_->clear();
        if (failure_) std::rethrow_exception(failure_);
        out_->close();
        if (bad_rows_ > messages_)
            complain("... and " + std::to_string(bad_rows_ - messages_) + " more");
        if (bad_rows_ > 0)
            complain(std::to_string(bad_rows_) + " of " + std::to_string(rows_) +
                     " rows have no answer");
        return bad_rows_ > 0 ? 1 : 0;
    }

private:
    [[nodiscard]] int jobs() const {
        if (options_.jobs > 0) return options_.jobs;
        cpu_set_t processors;
        return ::sched_getaffinity(0, sizeof processors, &processors) == 0 ? CPU_COUNT(&processors)
                                                                           : 1;
    }

    // As far as header, units and a row.
    void read_ahead() {
        std::vector<char> more;
        for (int lines = 0; lines < 3 && lines_.next(more);) {
            first_.insert(first_.end(), more.begin(), more.end());
            for (std::string_view rest(more.data(), more.size()); lines < 3 && !rest.empty();)
                lines += take_line(rest).is_passed_through() ? 0 : 1;
        }
    }

    // Reads header and units; returns what is written before the rows, which first_ then begins with.
    std::string begin() {
        const std::string_view all(first_.data(), first_.size());
        std::string_view rest = all;
        std::string head;
        const auto pass_comments = [&] {
            for (std::string_view next = rest; !rest.empty(); rest = next) {
                const Line line = take_line(next);
                if (!line.is_passed_through()) return;
                head.append(line.text).append(line.end);
                ++line_;
            }
        };
        pass_comments();
        if (rest.empty()) throw Error(options_.in + ": there is no table in it");
        std::string_view after = rest;
        const Line line = take_line(after);
        if (line.text.find('\0') != std::string_view::npos)
            throw Error(options_.in + ": this is no text: it has a zero byte in line " +
                        std::to_string(line_));
        const char separator = options_.separator.empty() ? guess_separator(line.text)
                                                          : separator_named(options_.separator);
        std::string_view second = after;
        std::string_view name = line.text;
        if (name.starts_with("\xEF\xBB\xBF")) name.remove_prefix(3);  // of UTF-8
        const Top top =
            read_top(cells_of(name, separator), cells_of(take_line(second).text, separator),
                     options_.header.empty()    ? -1
                     : options_.header == "yes" ? 1
                                                : 0);

        Asked asked{{}, {}, options_.family};
        for (const std::string& formula : options_.formulas)
            asked.formulas.push_back(parse_formula(formula));
        for (const std::string& unit : options_.units)
            asked.units.push_back(parse_named_unit(unit));
        plan_ = planned(asked, top);
        plan_.dialect.separator = separator;
        const auto take_over = [&](auto&& added) {
            const Line taken = take_line(rest);
            head.append(taken.text);
            for (const Step& step : plan_.steps) head.append(1, separator).append(added(step));
            head.append(taken.end);
            ++line_;
        };
        if (top.has_header)
            take_over([&](const Step& step) {
                return step.name +
                       (top.units_in_names ? " [" + std::string(step.unit->name) + "]" : "");
            });
        if (top.has_units) {
            pass_comments();
            take_over([](const Step& step) { return std::string(step.unit->name); });
        }
        plan_.dialect.decimal_comma = options_.decimal.empty() ? guess_decimal_comma(rest, plan_)
                                                               : options_.decimal == "comma";
        first_.erase(first_.begin(), first_.begin() + (rest.data() - all.data()));
        return head;
    }

    // Blocks are read by whoever is free, and written by turns.
    void work() noexcept {
        try {
            Rows rows(plan_, options_.digits, options_.most_messages);
            std::vector<char> block;
            Answered answered;
            for (std::size_t turn = 0; take(block, turn);) {
                rows.answer({block.data(), block.size()}, answered);
                std::unique_lock lock(turns_);
                my_turn_.wait(lock, [&] { return turn == turn_ || failure_; });
                if (failure_) return;
                write(answered, block.size());
                ++turn_;
                my_turn_.notify_all();
            }
        } catch (...) {
            const std::scoped_lock lock(turns_);
            if (!failure_) failure_ = std::current_exception();
            my_turn_.notify_all();
        }
    }

    bool take(std::vector<char>& block, std::size_t& turn) {
        const std::scoped_lock lock(reading_);
        turn = blocks_++;
        if (turn > 0) return lines_.next(block);
        block.swap(first_);
        return true;
    }

    void write(const Answered& answered, std::size_t bytes) {
        out_->write({answered.text.data(), answered.text.size()});
        for (const Problem& problem : answered.problems) {
            if (messages_ >= options_.most_messages) break;
            progress_->clear();
            complain("line " + std::to_string(line_ + problem.line) + ": " + problem.reason);
            ++messages_;
        }
        line_ += answered.lines;
        rows_ += answered.rows;
        bad_rows_ += answered.bad_rows;
        progress_->tell(bytes, answered.rows);
    }

    const MapOptions& options_;
    File in_;
    std::optional<File> out_;
    std::optional<Progress> progress_;
    Plan plan_;

    std::mutex reading_;
    Lines lines_;
    std::vector<char> first_;
    std::size_t blocks_ = 0;

    std::mutex turns_;
    std::condition_variable my_turn_;
    std::exception_ptr failure_;
    std::size_t turn_ = 0, line_ = 1, rows_ = 0, bad_rows_ = 0, messages_ = 0;
};

}  // namespace

int map(const MapOptions& options) { return Map(options).run(); }

}  // namespace vaprix::cli
