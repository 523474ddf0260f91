// SPDX-License-Identifier: MIT
// Tables of what exports answer (their heads say how a row reads): failures.csv, what every export
// answers, stores and writes at given arguments; relations.csv, how exports go with each other; and
// what none of them may do with arguments that no state has.
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
#include "split.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using Given = std::map<std::string, double>;  // the arguments of a row, the region among them

// Sums and products of numbers, names of arguments and exports of them; each > or < moves all that
// stands before it to the next double.
class Expression {
public:
    Expression(const std::string& text, const Given& given)
        : text_(text.c_str()), next_(text_), given_(given) {
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
        while (*next_ == '*' || *next_ == '/') {
            if (*next_++ == '*')
                total *= atom();
            else
                total /= atom();
        }
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
            if (given_.count(name) == 0)
                throw std::runtime_error("no argument '" + name + "' in " + text_);
            return given_.at(name);
        }
        const Export& function = find(name);
        Values at{};
        for (const Name input : function.inputs) ++next_, at[input] = sum();  // after ( or :
        return ++next_, function(at);
    }

    const char *text_, *next_;
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
    for (const std::string& one : split(arguments[at].substr(equals + 1), '/')) {
        const auto set = sets.find(one);
        for (const std::string& text : split(set == sets.end() ? one : set->second, '/')) {
            given[arguments[at].substr(0, equals)] = Expression(text, given).value;
            combine(arguments, at + 1, sets, given, all);
        }
    }
    given.erase(arguments[at].substr(0, equals));
}

std::vector<Texts> read_table(const std::string& name) {
    std::vector<Texts> rows;
    std::ifstream file(VAPRIX_TABLES "/" + name);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        rows.push_back(split(line, ','));
        rows.back().resize(6);
        rows.back()[5] = line;
    }
    if (rows.empty()) throw std::runtime_error("no table " + name);
    return rows;
}

std::vector<Row> read_rows(const std::string& name) {
    std::vector<Row> rows;
    std::map<std::string, std::string> sets, states;
    for (const Texts& columns : read_table(name)) {
        if (columns[0] == "set" || columns[0] == "states") {
            (columns[0] == "set" ? sets : states)[columns[1]] = columns[2];
            continue;
        }
        Row row{columns[0], columns[2], columns[3], columns[4], columns[5], {}};
        if (columns[1].empty()) row.states.emplace_back();
        for (const std::string& named : split(columns[1], ';')) {
            for (const std::string& state :
                 split(states.count(named) != 0 ? states[named] : named, ';')) {
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

// Whether `got` is as the row's text says: a word, or an expression that may name a relative
// tolerance after ~, with a floor that the value is judged against as well.
bool matches(double got, const std::string& text, const Given& given, double floor = 0) {
    if (text == "answer") return std::isfinite(got) && got > -99998 && got != 0;
    if (text == "finite") return std::isfinite(got) && got != failed;
    const auto tilde = text.find('~');
    const double want = text == "fail" ? failed : Expression(text.substr(0, tilde), given).value;
    if (tilde == std::string::npos) return got == want || (std::isnan(got) && std::isnan(want));
    return std::fabs(got - want) <= std::stod(text.substr(tilde + 1)) * (std::fabs(want) + floor);
}

// Calls what a row names.
void check(const Row& row, std::set<std::string>& seen) {
    const std::regex pattern(row.exports);
    int calls = 0, wrong = 0;
    for (const Export& function : exports()) {
        std::smatch match;
        if (!std::regex_match(function.name, match, pattern)) continue;
        seen.insert(function.name);
        const std::string value = match.format(row.value), stored = match.format(row.code);
        const int code = stored == "-" ? untouched : std::stoi(stored);
        for (const Given& given : row.states) {
            const Values at = arguments_of(function, given);
            const auto region = given.find("region");
            const Answer got =
                ask(function, at, region == given.end() ? 0 : static_cast<int>(region->second));
            ++calls;
            const bool right = matches(got.value, value, given) && got.code == code &&
                               (row.region.empty() || got.region == std::stoi(row.region));
            EXPECT_TRUE(right || ++wrong > 3)
                << digits(function, at) << ": " << testing::PrintToString(got.value) << ", code "
                << got.code << ", region " << got.region << "; row: " << row.line;
        }
    }
    EXPECT_LE(wrong, 3) << "of " << calls << ": " << row.line;
    EXPECT_GT(calls, 0) << "no export: " << row.line;
}

TEST(Tables, OfFailuresAndOddities) {
    std::set<std::string> seen;
    for (const Row& row : read_rows("failures.csv")) ASSERT_NO_THROW(check(row, seen)) << row.line;
    for (const Export& function : exports())
        EXPECT_EQ(seen.count(function.name), 1U) << function.name;
}

// States of a stratum, of region 0 too; or of saturated and wet steam from one temperature to another.
std::vector<strata::State> sample(const std::string& text, int count) {
    std::vector<strata::State> states;
    strata::Random random(400);
    for (const strata::Stratum& stratum : strata::strata)
        for (int k = 0; k < count && stratum.name == text; ++k)
            states.push_back(state(stratum.sample(random)));
    const Texts range = split(text, ' ');
    for (int k = 0; k < count && states.size() < static_cast<std::size_t>(count); ++k) {
        const double at = random.uniform(std::stod(range.at(0)), std::stod(range.at(2)));
        states.push_back(strata::state({call<PBT>(at), at, random.uniform(0, 1)}));
    }
    return states;
}

TEST(Tables, OfRelations) {
    for (const Texts& row : read_table("relations.csv")) {
        const std::regex pattern(row[0]);
        int calls = 0, wrong = 0;
        for (const std::string& name : split(row[1], '/')) {
            for (const strata::State& at : sample(name, strata::states(0.004))) {
                Given given;
                for (unsigned k = 0; k < names; ++k) given[spelling[k]] = at[k];
                for (const Export& function : exports()) {
                    std::smatch match;
                    if (!std::regex_match(function.name, match, pattern)) continue;
                    // energies and entropy pass through zero
                    const std::string property = match[1];
                    const double floor = property.size() != 1 ? 0
                                         : std::strchr("HUFG", property[0]) != nullptr
                                             ? strata::R * at[T]
                                         : property == "S" ? strata::R
                                                           : 0;
                    const double got = function(at);
                    ++calls;
                    const bool right =
                        matches(got, match.format(row[2]) + "~" + row[3], given, floor);
                    EXPECT_TRUE(right || ++wrong > 2)
                        << digits(function, at) << ": " << testing::PrintToString(got)
                        << "; row: " << row[5];
                }
            }
        }
        EXPECT_GT(calls, 0) << row[5];
    }
}

// No argument makes an export answer or store what it has no word for.
TEST(Tables, NoOtherAnswers) {
    // Reciprocals of 0 that the families want, and bare formulas, which are not checked.
    const std::regex unbounded(
        "[A-Z]+[1235]N|DITER3|DBPT|VBPX|TCOBPT|PRBPT|FB23|D[LV]EST|DVISCD[TV]|VISCVT");
    const std::regex silent(
        "(?!BETBPT|FUGOPT|HVAPOT|SVAPOT)([A-Z]+B(PT|PH|PS|PV|PVZ|TH|TS|TV|HS|VH|VS)"
        "|[A-Z0-9]+N|REGION.*|[HVSCPTG0D]+PT|TPH|TPS|DITER3)");
    std::vector<double> strange;
    for (const std::string& text :
         split("nan/inf/-inf/0/-0/-1/5e-324/-5e-324/1e308/-1e308/1.7976931348623157e308/"
               "1e-6/0.002/3/25/100/300/650/1500/2800",
               '/'))
        strange.push_back(std::strtod(text.c_str(), nullptr));
    std::set<int> codes = {untouched};
    std::ifstream page(VAPRIX_CODES);
    for (std::string line; std::getline(page, line);)
        if (std::regex_search(line, std::regex("^[|] (0|-1[0-9]*) ")))
            codes.insert(std::stoi(line.substr(2)));
    ASSERT_GT(codes.size(), 15U);
    for (const Export& function : exports()) {
        const bool stores = !std::regex_match(function.name, silent),
                   bounded = !std::regex_match(function.name, unbounded);
        std::vector<std::size_t> digit(function.inputs.size(), 0);
        for (bool more = true; more;) {
            Values at{};
            for (std::size_t k = 0; k < digit.size(); ++k)
                at[function.inputs[k]] = strange[digit[k]];
            const Answer got = ask(function, at);
            ASSERT_TRUE(got.code == untouched || (stores && codes.count(got.code) == 1))
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
