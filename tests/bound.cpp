// SPDX-License-Identifier: MIT
#include "bound.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <stdexcept>

#include "split.hpp"

namespace bound {

namespace {

void* library() {
    static void* const handle = dlopen(VAPRIX_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) throw std::runtime_error(dlerror());
    return handle;
}

std::vector<Export> read_signatures() {
    std::vector<Export> all;
    std::ifstream list(VAPRIX_SIGNATURES);
    for (std::string line; std::getline(list, line);) {
        const Texts words = split(line, ' ');
        Export one;
        one.name = words.at(0);
        one.symbol = dlsym(library(), one.name.c_str());
        if (one.symbol == nullptr) throw std::runtime_error(dlerror());
        for (auto word = words.begin() + 1; word != words.end(); ++word) {
            const auto* const named = std::find(std::begin(spelling), std::end(spelling), *word);
            if (named != std::end(spelling)) {
                one.inputs.push_back(static_cast<Name>(named - spelling));
            } else {
                (*word == "region" ? one.region : one.out) = true;
            }
        }
        all.push_back(one);
    }
    if (all.empty()) throw std::runtime_error("no signatures in " VAPRIX_SIGNATURES);
    return all;
}

template <class Result, class... Arguments>
Result invoke(void* symbol, Arguments... arguments) {
    return reinterpret_cast<Result (*)(Arguments...)>(symbol)(arguments...);
}

}  // namespace

bool Export::is_for(int region_of_state) const {
    static const std::regex unchecked("FB23|D[LV]EST|VISCVT|DVISCD[TV]");
    const int native = name.back() == 'N' ? name[name.size() - 2] - '0'
                       : name == "DITER3" ? 3
                                          : region_of_state;
    return native == region_of_state && (native != 0 || !std::regex_match(name, unchecked));
}

double Export::operator()(const Pointers& at, int* region_given, double* result) const {
    if (name == "ECODETUL") return invoke<int>(symbol);
    const double* in[4] = {};
    for (std::size_t k = 0; k < inputs.size(); ++k) in[k] = at[inputs[k]];
    if (region && out)
        return invoke<void>(symbol, in[0], in[1], in[2], region_given, result), *result;
    if (out) return invoke<void>(symbol, in[0], in[1], result), *result;
    if (region) return invoke<double>(symbol, in[0], in[1], region_given);
    switch (inputs.size()) {
        case 0: return invoke<double>(symbol);
        case 1: return invoke<double>(symbol, in[0]);
        case 2: return invoke<double>(symbol, in[0], in[1]);
        case 3: return invoke<double>(symbol, in[0], in[1], in[2]);
        default: return invoke<double>(symbol, in[0], in[1], in[2], in[3]);
    }
}

double Export::operator()(const Values& at, int region_given) const {
    return ask(*this, at, region_given).value;
}

const std::vector<Export>& exports() {
    static const std::vector<Export> all = read_signatures();
    return all;
}

const Export& find(const std::string& name) {
    static const std::map<std::string, const Export*> by_name = [] {
        std::map<std::string, const Export*> all;
        for (const Export& each : exports()) all[each.name] = &each;
        return all;
    }();
    const auto found = by_name.find(name);
    if (found == by_name.end()) throw std::runtime_error("no export " + name);
    return *found->second;
}

int& code() {
    // The thread's first call sets it to 0.
    static int* const data =
        (find("ECODETUL")({}, nullptr, nullptr), static_cast<int*>(dlsym(library(), "CODE")));
    return *data;
}

Answer ask(const Export& function, const Values& at, int region) {
    Pointers in;
    for (unsigned k = 0; k < names; ++k) in[k] = &at[k];
    double result = unwritten;
    code() = untouched;
    const double value = function(in, &region, &result);
    return {value, code(), region};
}

std::string digits(const Export& function, const Values& at) {
    std::string text = function.name;
    for (const Name name : function.inputs) {
        char number[40];
        std::snprintf(number, sizeof number, " %s=%.17g", spelling[name], at[name]);
        text += number;
    }
    return text;
}

}  // namespace bound
