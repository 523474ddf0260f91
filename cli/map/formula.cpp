// SPDX-License-Identifier: MIT
#include "formula.hpp"

#include <charconv>

#include "units.hpp"

namespace vaprix::cli {
namespace {

// Reads a formula from left to right.
class Reader {
public:
    explicit Reader(std::string_view text) : all_(text), rest_(text) {}

    [[noreturn]] void fail(const std::string& what) const {
        throw Error("in '" + std::string(all_) + "': " + what +
                    "; a formula is such as: h[kJ/kg] = h(p[bar], T[C])");
    }
    bool take(char wanted) {
        skip_blanks();
        if (rest_.empty() || rest_[0] != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void need(char wanted) {
        if (!take(wanted)) fail(std::string("no '") + wanted + "' where there should be one");
    }
    // A name, plain or in quotes.
    std::string name() {
        skip_blanks();
        for (const char quote : {'\'', '"'})
            if (take(quote)) return until(quote);
        const std::size_t end = std::min(rest_.find_first_of(" \t,()[]=#'\""), rest_.size());
        const std::string out(rest_.substr(0, end));
        rest_.remove_prefix(end);
        if (out.empty()) fail("a name is missing");
        return out;
    }
    // What stands in square brackets, if they come next.
    std::string bracketed() { return take('[') ? until(']') : ""; }
    [[nodiscard]] bool is_at_end() {
        skip_blanks();
        return rest_.empty();
    }
    Source source() {
        Source out = plain_source();
        if (!out.column.empty() && take('=')) {
            const std::string variable = out.column;
            out = plain_source();
            out.variable = variable;
        }
        out.unit = bracketed();
        return out;
    }

private:
    void skip_blanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    }
    std::string until(char end) {
        const std::size_t at = rest_.find(end);
        if (at == std::string_view::npos) fail(std::string("no closing ") + end);
        const std::string out(trimmed(rest_.substr(0, at)));
        rest_.remove_prefix(at + 1);
        return out;
    }
    Source plain_source() {
        Source out;
        if (take('#')) {
            const auto [end, error] =
                std::from_chars(rest_.data(), rest_.data() + rest_.size(), out.number);
            if (error != std::errc() || out.number == 0) fail("columns are numbered #1, #2 ...");
            rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
            return out;
        }
        skip_blanks();
        std::string_view after = rest_;
        out.constant = take_number(after);
        if (out.constant &&
            (after.empty() || std::string_view(" \t,)[").find(after[0]) != std::string_view::npos))
            rest_ = after;
        else {
            out.constant.reset();
            out.column = name();
        }
        return out;
    }

    std::string_view all_, rest_;
};

}  // namespace

std::string Source::text() const {
    if (constant) return shortest(*constant);
    return number > 0 ? std::string("#").append(std::to_string(number)) : column;
}

Formula parse_formula(std::string_view text) {
    Reader reader(text);
    Formula out;
    out.name = reader.name();
    out.unit = reader.bracketed();
    reader.need('=');
    out.function = reader.name();
    reader.need('(');
    do out.sources.push_back(reader.source());
    while (reader.take(','));
    reader.need(')');
    if (!reader.is_at_end()) reader.fail("there is more after the ')'");
    return out;
}

NamedUnit parse_named_unit(std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) return {{}, std::string(text)};
    Source column;
    const std::string_view name = trimmed(text.substr(0, equals));
    if (name.starts_with('#'))
        column = Reader(name).source();
    else
        column.column = name;
    return {column, std::string(trimmed(text.substr(equals + 1)))};
}

}  // namespace vaprix::cli
