// SPDX-License-Identifier: MIT
// What every export answers, stores and writes at given arguments, from data: failures.csv (its head
// says how a row reads); and what none of them may do with arguments that no state has.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bound.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using Texts = std::vector<std::string>;

Texts split(const std::string& text, char separator) {
    Texts parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);) {
        const auto first = part.find_first_not_of(' '), last = part.find_last_not_of(' ');
        parts.push_back(first == std::string::npos ? "" : part.substr(first, last - first + 1));
    }
    return parts;
}

using Given = std::map<std::string, double>;  // the arguments of a row, the region among them

// Sums and products of numbers, names of arguments and exports of them; each > or < moves all that
// stands before it to the next double.
class Expression {
public:
    Expression(const std::string& text, const Given& given) : next_(text.c_str()), given_(given) {
        value = sum();
        if (*next_ != '\0')
            throw std::runtime_error("cannot read '" + text + "' at '" + next_ + "'");
    }
    double value;

private:
    double sum() {
        double total = product();
        for (; std::strchr("+-><", *next_) != nullptr && *next_ != '\0';) {
            const char sign = *next_++;
            total = sign == '+'   ? total + product()
                    : sign == '-' ? total - product()
                                  : strata::steps(total, sign == '>' ? 1 : -1);
        }
        return total;
    }
    double product() {
        double total = atom();
        while (*next_ == '*') ++next_, total *= atom();
        return total;
    }
    double atom() {
        char* end = nullptr;
        const double number = std::strtod(next_, &end);
        if (end != next_) return next_ = end, number;
        std::string name;
        while (std::isalnum(static_cast<unsigned char>(*next_)) != 0 || *next_ == '_')
            name += *next_++;
        if (*next_ != '(') {
            if (given_.count(name) == 0) throw std::runtime_error("no argument '" + name + "'");
            return given_.at(name);
        }
        const Export& function = find(name);
        Values at{};
        for (const Name input : function.inputs) ++next_, at[input] = sum();  // after ( or :
        return ++next_, function(at);
    }

    const char* next_;
    const Given& given_;
};

struct Row {
    std::string exports, value, code, region, line;
    std::vector<Given> states;
};

// Every combination of the alternatives of the arguments: "p=1/2 T=300/PBT(p)".
void combine(const Texts& arguments, std::size_t at, const std::map<std::string, std::string>& sets,
             Given& given, std::vector<Given>& all) {
    if (at == arguments.size()) return all.push_back(given);
    const auto equals = arguments[at].find('=');
    const std::string name = arguments[at].substr(0, equals);
    for (const std::string& alternative : split(arguments[at].substr(equals + 1), '/')) {
        const auto set = sets.find(alternative);
        for (const std::string& text :
             set == sets.end() ? Texts{alternative} : split(set->second, '/')) {
            given[name] = Expression(text, given).value;
            combine(arguments, at + 1, sets, given, all);
        }
    }
    given.erase(name);
}

std::vector<Row> read_rows(const char* path) {
    std::vector<Row> rows;
    std::map<std::string, std::string> sets, states;
    std::ifstream file(path);
    if (!file) throw std::runtime_error(std::string("no file ") + path);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        const Texts columns = split(line, ',');
        if (columns[0] == "set" || columns[0] == "states") {
            (columns[0] == "set" ? sets : states)[columns[1]] = columns[2];
            continue;
        }
        if (columns.size() < 4) throw std::runtime_error("too few columns: " + line);
        Row row{columns[0], columns[2], columns[3], columns.size() > 4 ? columns[4] : "", line, {}};
        if (columns[1].empty()) row.states.emplace_back();
        for (const std::string& name : split(columns[1], ';')) {
            const std::string& text = states.count(name) != 0 ? states[name] : name;
            for (const std::string& state : split(text, ';')) {
                Given given;
                combine(split(state, ' '), 0, sets, given, row.states);
            }
        }
        rows.push_back(row);
    }
    return rows;
}

// The arguments an export takes of those that a row gives.
Values arguments_of(const Export& function, const Given& given) {
    Values at{};
    at[wavelength] = 0.5;
    at[tolerance] = 1e-6;
    for (const Name name : function.inputs) {
        const auto found = given.find(spelling[name]);
        if (found != given.end()) at[name] = found->second;
        if (found == given.end() && name != wavelength && name != tolerance)
            throw std::runtime_error(function.name + " needs " + spelling[name]);
    }
    return at;
}

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
bool answered(double value) { return std::isfinite(value) && value > -99998 && value != 0; }

// Whether `got` is as the row's text says: a word, or an expression that may name a relative
// tolerance after ~.
bool matches(double got, const std::string& text, Given given) {
    if (text == "answer") return answered(got);
    if (text == "finite") return std::isfinite(got) && got != failed;
    given.insert({{"fail", failed}});
    const auto tilde = text.find('~');
    const double want = Expression(text.substr(0, tilde), given).value;
    if (tilde == std::string::npos) return same(got, want);
    return std::fabs(got - want) <= std::stod(text.substr(tilde + 1)) * std::fabs(want);
}

// Calls what a row names; counts the calls.
int check(const Row& row, std::set<std::string>& seen) {
    const std::regex pattern(row.exports);
    int calls = 0, wrong = 0;
    for (const Export& function : exports()) {
        std::smatch match;
        if (!std::regex_match(function.name, match, pattern)) continue;
        seen.insert(function.name);
        const std::string value = match.format(row.value), code_text = match.format(row.code);
        for (const Given& given : row.states) {
            const Values at = arguments_of(function, given);
            const int region =
                given.count("region") != 0 ? static_cast<int>(given.at("region")) : 0;
            const Answer got = ask(function, at, region);
            ++calls;
            const int code_wanted = code_text == "-" ? untouched : std::stoi(code_text);
            const bool region_right = row.region.empty() || got.region == std::stoi(row.region);
            if (matches(got.value, value, given) && got.code == code_wanted && region_right)
                continue;
            if (++wrong > 3) continue;
            ADD_FAILURE() << digits(function, at) << ": " << testing::PrintToString(got.value)
                          << ", code " << got.code << ", region " << got.region
                          << "; row: " << row.line;
        }
    }
    EXPECT_LE(wrong, 3) << "of " << calls << ": " << row.line;
    EXPECT_GT(calls, 0) << "no export: " << row.line;
    return calls;
}

TEST(Failures, AsTheTableSays) {
    std::set<std::string> seen;
    int calls = 0;
    for (const Row& row : read_rows(VAPRIX_TABLES "/failures.csv"))
        ASSERT_NO_THROW(calls += check(row, seen)) << row.line;
    for (const Row& row :
         VAPRIX_MENDED ? read_rows(VAPRIX_TABLES "/mended.csv") : std::vector<Row>{})
        ASSERT_NO_THROW(check(row, seen)) << row.line;
    for (const Export& function : exports())
        EXPECT_EQ(seen.count(function.name), 1U) << function.name;
    std::printf("%d calls\n", calls);
}

// The codes that the page of codes lists.
std::set<int> documented_codes() {
    std::set<int> codes = {untouched};
    std::ifstream page(VAPRIX_CODES);
    for (std::string line; std::getline(page, line);)
        if (line.rfind("| -1", 0) == 0 || line.rfind("| 0 ", 0) == 0)
            codes.insert(std::stoi(line.substr(2)));
    return codes;
}

// Exports that may answer without end or with no number: reciprocals of 0 that the families want, and
// bare formulas, which are not checked.
const std::regex unbounded(
    "[A-Z]+[1235]N|DITER3|DBPT|VBPX|TCOBPT|PRBPT|FB23|D[LV]EST|DVISCD[TV]|VISCVT");

// No argument makes an export answer or store what it has no word for.
TEST(Failures, NoOtherAnswers) {
    const std::vector<double> strange = {not_a_number,
                                         infinity,
                                         -infinity,
                                         0,
                                         -0.0,
                                         -1,
                                         5e-324,
                                         -5e-324,
                                         1e308,
                                         -1e308,
                                         std::numeric_limits<double>::max(),
                                         1e-6,
                                         0.002,
                                         3,
                                         25,
                                         100,
                                         300,
                                         650,
                                         1500,
                                         2800};
    const std::set<int> codes = documented_codes();
    ASSERT_GT(codes.size(), 15U);
    for (const Export& function : exports()) {
        const std::regex without_code(
            "(?!BETBPT|FUGOPT|HVAPOT|SVAPOT)([A-Z]+B(PT|PH|PS|PV|PVZ|TH|TS|TV|HS|VH|VS)"
            "|[A-Z0-9]+N|REGION.*|[HVSCPTG0D]+PT|TPH|TPS|DITER3)");
        const bool silent = std::regex_match(function.name, without_code);
        const bool bounded = !std::regex_match(function.name, unbounded);
        std::vector<std::size_t> digit(function.inputs.size(), 0);
        for (bool more = true; more;) {
            Values at{};
            for (std::size_t k = 0; k < digit.size(); ++k)
                at[function.inputs[k]] = strange[digit[k]];
            const Answer got = ask(function, at);
            ASSERT_EQ(codes.count(got.code), 1U) << digits(function, at) << " stores " << got.code;
            ASSERT_TRUE(!silent || got.code == untouched)
                << digits(function, at) << " stores " << got.code;
            ASSERT_TRUE(std::isfinite(got.value) || !bounded)
                << digits(function, at) << " answers " << got.value;
            std::size_t place = 0;
            while (place < digit.size() && ++digit[place] == strange.size()) digit[place++] = 0;
            more = place < digit.size();
        }
    }
}

}  // namespace
