// SPDX-License-Identifier: MIT
// The parts of a line of text, as the tables of the tests are read.
#pragma once

#include <sstream>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

// Without the blanks around them; of no text none.
inline Texts split(const std::string& text, char separator) {
    Texts parts;
    std::istringstream in(text.empty() ? text : text + separator);
    for (std::string part; std::getline(in, part, separator);) {
        const auto first = part.find_first_not_of(" \r"), last = part.find_last_not_of(" \r");
        parts.push_back(first == std::string::npos ? "" : part.substr(first, last - first + 1));
    }
    return parts;
}
