// SPDX-License-Identifier: MIT
#include "canvas.hpp"

#include <array>

#include "units.hpp"

namespace vaprix::cli {

double width_of(const std::vector<Words>& words, double size) {
    // of DejaVu Sans, thousandths of the size, from the blank to ~
    static constexpr std::array<std::int16_t, 95> widths{
        318,  401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361, 318, 337,
        636,  636, 636, 636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531,
        1000, 684, 686, 698, 770, 632, 575, 775, 752, 295, 295, 656, 557, 863, 748, 787,
        603,  787, 695, 635, 611, 732, 684, 989, 685, 611, 685, 390, 337, 390, 838, 500,
        500,  613, 635, 550, 635, 615, 352, 635, 634, 278, 278, 579, 278, 974, 634, 612,
        635,  635, 411, 521, 392, 634, 592, 818, 592, 592, 525, 636, 337, 636, 838};
    constexpr int of_others = 640;
    int out = 0;
    for (const Words& run : words) {
        for (const char c : run.text) {
            const auto code = static_cast<unsigned char>(c);
            if (code >= ' ' && code <= '~')
                out += widths[code - ' '];
            else if ((code & 0xC0) != 0x80)
                out += of_others;
        }
    }
    return out * 1e-3 * size;
}

Box under(const Text& text) {
    const double width = width_of(text.words, text.size), margin = 0.15 * text.size;
    const double left = -0.5 * static_cast<int>(text.anchor) * width;
    return {left - margin, -0.85 * text.size, width + 2 * margin, text.size};
}

std::unique_ptr<Canvas> canvas_of(Format format, double width, double height, Colour paper,
                                  const std::string& title) {
    if (format == Format::svg) return svg_canvas(width, height, paper, title);
#ifdef VAPRIX_HAS_CAIRO
    return cairo_canvas(format, width, height, paper, title);
#else
    throw Error("this vaprix was built without cairo, which PDF and PNG need; SVG it draws itself");
#endif
}

}  // namespace vaprix::cli
