// SPDX-License-Identifier: MIT
//
// vaprix chart: the usual charts as pictures.
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "chart/process.hpp"
#include "commands.hpp"
#include "map/files.hpp"
#include "units.hpp"

namespace vaprix::cli {
namespace {

using charts::Axis;
using charts::Kind;
using charts::Quantity;
using charts::View;

struct Options {
    std::string chart, out, process, size = "1000x750";
    std::vector<std::string> units, ranges, lines;
    bool is_dark = false, is_light = false, is_straight = false;
};

const std::vector<std::string> charts_known = {"ts", "hs", "ph", "pt", "pv"};  // as Chart
constexpr std::string_view bases[] = {"MPa",   "K",         "m3/kg",
                                      "kJ/kg", "kJ/(kg K)", "kg/kg"};  // as Quantity
constexpr std::string_view symbols = "pTvhs";                          // as Quantity

// As it is printed in a picture.
std::string printed(std::string_view unit) {
    if (unit == "C" || unit == "F" || unit == "R") return "°" + std::string(unit);
    std::string out(unit);
    const std::size_t cube = out.find("m3"), feet = out.find("ft3");
    if (feet != std::string::npos)
        out.replace(feet + 2, 1, "³");
    else if (cube != std::string::npos)
        out.replace(cube + 1, 1, "³");
    return out;
}

Format format_of(const std::string& file) {
    if (file == "-") return Format::svg;
    const std::size_t dot = file.rfind('.');
    std::string suffix = dot == std::string::npos ? "" : file.substr(dot + 1);
    for (char& c : suffix) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (suffix == "svg") return Format::svg;
    if (suffix == "pdf") return Format::pdf;
    if (suffix == "png") return Format::png;
    throw Error(file + ": what is drawn is told by the suffix, .svg, .pdf or .png");
}

std::pair<double, double> size_of(const std::string& text) {
    std::string_view rest = text;
    const std::optional<double> width = take_number(rest);
    const bool has_x = rest.starts_with('x');
    rest.remove_prefix(has_x ? 1 : 0);
    const std::optional<double> height = take_number(rest);
    constexpr double least = 200, most = 10000;
    if (!width || !has_x || !height || !rest.empty() || *width < least || *height < least ||
        *width > most || *height > most)
        throw Error("--size " + text + " is no size such as 1000x750, of 200 to 10000");
    return {std::round(*width), std::round(*height)};
}

// "T=0C:800C" for the axis of T.
void set_range(View& view, const std::string& text, Wanted& wanted) {
    const std::size_t equals = text.find('='), colon = text.find(':');
    const std::size_t symbol = equals == 1 ? symbols.find(text[0]) : std::string_view::npos;
    Axis* axis = nullptr;
    for (Axis* const known : {&view.x, &view.y})
        if (static_cast<std::size_t>(known->quantity) == symbol) axis = known;
    if (axis == nullptr || colon == std::string::npos || colon < equals)
        throw Error("--range " + text + " is no range of an axis, such as " +
                    symbols[static_cast<std::size_t>(view.y.quantity)] + "=LOW:HIGH");
    const Unit *low = nullptr, *high = nullptr;
    const std::string_view base = bases[symbol];
    axis->high = parse_quantity(std::string_view(text).substr(colon + 1), base, high);
    std::string from = text.substr(equals + 1, colon - equals - 1);
    axis->low = parse_quantity(from, base, low);
    if (low->name == base && high->name != base)  // T=0:800C is in C
        axis->low = to_base(*high, from_base(*low, axis->low));
    wanted.add(*high);
    if (!(axis->high > axis->low) || (axis->logarithmic && !(axis->low > 0)))
        throw Error("--range " + text + " goes from low to high" +
                    (axis->logarithmic ? ", above 0" : ""));
}

std::string joined(const std::vector<std::string>& words, const char* between) {
    std::string out;
    for (const std::string& word : words) out += (out.empty() ? "" : between) + word;
    return out;
}

View view_of(const Options& options) {
    const auto chart = std::find(charts_known.begin(), charts_known.end(), options.chart);
    View view = charts::view_of(static_cast<charts::Chart>(chart - charts_known.begin()));
    Wanted wanted(options.units);
    for (const std::string& range : options.ranges) set_range(view, range, wanted);
    for (std::size_t k = 0; k < symbols.size(); ++k) {
        const Unit& unit = wanted.of(bases[k]);
        view.units[k] = {printed(unit.name), unit.per / unit.times, unit.plus};
    }
    if (!options.lines.empty()) {
        view.shows.fill(false);
        for (const std::string& name : options.lines)
            for (std::size_t k = 0; k < charts::kinds; ++k)
                if (name == "all" || charts::name_of(static_cast<Kind>(k)) == name)
                    view.shows[k] = true;
    }
    return view;
}

int run(const Options& options) {
    const Format format = format_of(options.out);
    const auto [width, height] = size_of(options.size);
    const Style style{width, height, options.is_dark, options.is_straight};
    const View view = view_of(options);
    const Process process = options.process.empty() ? Process{} : read_process(options.process);
    const std::unique_ptr<Canvas> canvas =
        canvas_of(format, width, height, paper_of(style), title_of(view));
    draw(*canvas, view, process.stations, style);
    const std::string picture = canvas->finished();
    File out = File::to_write(options.out);
    out.write(picture);
    out.close();
    if (process.bad_rows > 0)
        complain(std::to_string(process.bad_rows) + " of " + std::to_string(process.rows) +
                 " rows have no answer");
    return process.bad_rows > 0 ? 1 : 0;
}

}  // namespace

void add_chart(CLI::App& app, int& status) {
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("chart", "Draw a chart of water and steam");
    command->add_option("chart", options->chart, "ts, hs, ph, pt or pv: ordinate over abscissa")
        ->required()
        ->check(CLI::IsMember(charts_known))
        ->type_name(joined(charts_known, "|"));
    command
        ->add_option("-o,--out", options->out,
                     "The picture, .svg, .pdf or .png; - is SVG on stdout")
        ->type_name("FILE")
        ->required();
    command
        ->add_option(
            "-p,--process", options->process,
            "A table, CSV or TSV, of the points of a process: two of p, T, v, d, h, s, x, the "
            "first two that a row has, with units as in vaprix map; a first other column names "
            "them. They are numbered, and joined as such processes run; a blank line begins "
            "another path. - is stdin")
        ->type_name("FILE");
    command->add_flag("--straight", options->is_straight, "Join the points by straight lines");
    add_units(*command, options->units);
    command
        ->add_option("-r,--range", options->ranges,
                     "From where to where an axis goes, such as T=0C:800C; one for each axis")
        ->type_name("RANGE")
        ->expected(1)
        ->take_all()
        ->delimiter(',');
    std::vector<std::string> names{"all"};
    for (std::size_t k = 0; k < charts::kinds; ++k)
        names.push_back(charts::name_of(static_cast<Kind>(k)));
    command
        ->add_option("-l,--lines", options->lines,
                     "Kinds of lines to draw, with commas between: " + joined(names, ", ") +
                         "; else the usual ones")
        ->check(CLI::IsMember(names))
        ->type_name("KIND:" + joined(names, "|"))
        ->expected(1)
        ->take_all()
        ->delimiter(',');
    command->add_option("--size", options->size, "Pixels, of PDF points")
        ->type_name("WxH")
        ->capture_default_str();
    CLI::Option* const dark =
        command->add_flag("--dark", options->is_dark, "Light lines on dark paper");
    command->add_flag("--light", options->is_light, "Dark lines on white paper, as it is")
        ->excludes(dark);
    command->footer(
        "Examples:\n"
        "  vaprix chart ts -o ts.svg -u C,bar\n"
        "  vaprix chart hs -o hs.pdf -r s=5:9,h=2000:4000 -u C,bar\n"
        "  vaprix chart ph -o cycle.png -p cycle.csv --size 1600x1200 --dark\n"
        "  vaprix chart pv -o - -l saturation,isotherm >pv.svg");
    command->callback([options, &status] { status = run(*options); });
}

}  // namespace vaprix::cli
