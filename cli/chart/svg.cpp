// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "canvas.hpp"

namespace vaprix::cli {
namespace {

std::string escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '"')
            out += "&quot;";
        else if (static_cast<unsigned char>(c) < ' ')
            out += ' ';
        else
            out += c;
    }
    return out;
}

// Hundredths of a pixel.
std::string decimal(double value) {
    std::array<char, 32> text;
    const double rounded = std::round(value * 100) / 100;
    return {text.data(), std::to_chars(text.begin(), text.end(), rounded == 0 ? 0 : rounded).ptr};
}

template <class... Parts>
std::string joined(const Parts&... parts) {
    std::string out;
    ((out += parts), ...);
    return out;
}

std::string attribute(std::string_view name, std::string_view value) {
    return joined(" ", name, "=\"", value, "\"");
}

std::string class_of(const std::string& kind) {
    return kind.empty() ? kind : attribute("class", kind);
}

std::string colour_of(Colour colour) {
    std::array<char, 8> text;
    std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(colour & 0xFFFFFF));
    return text.data();
}

std::string stroke_of(const Pen& pen) {
    std::string dashes;
    for (const double dash : pen.dashes) dashes += joined(dashes.empty() ? "" : " ", decimal(dash));
    return joined(attribute("stroke", colour_of(pen.colour)),
                  attribute("stroke-width", decimal(pen.width)),
                  dashes.empty() ? dashes : attribute("stroke-dasharray", dashes));
}

std::string box_of(const Box& box) {
    return joined(attribute("x", decimal(box.left)), attribute("y", decimal(box.top)),
                  attribute("width", decimal(box.width)), attribute("height", decimal(box.height)));
}

std::string title_element(const std::string& name) {
    return name.empty() ? name : joined("<title>", escaped(name), "</title>");
}

class Svg : public Canvas {
public:
    Svg(double width, double height, Colour paper, const std::string& title)
        : paper_(colour_of(paper)) {
        put("<svg xmlns=\"http://www.w3.org/2000/svg\"", attribute("width", decimal(width)),
            attribute("height", decimal(height)),
            attribute("viewBox", joined("0 0 ", decimal(width), " ", decimal(height))),
            attribute("font-family", joined(typeface, ", Verdana, sans-serif")),
            " fill=\"none\" stroke-linejoin=\"round\">\n", title_element(title), "\n<rect",
            box_of({0, 0, width, height}), attribute("fill", paper_), "/>\n");
    }
    void rectangle(const Box& box, const Pen& pen) override {
        put("<rect", box_of(box), stroke_of(pen), "/>\n");
    }
    void line(const std::vector<Spot>& spots, const Pen& pen, const std::string& kind,
              const std::string& name) override {
        put("<path", class_of(kind), stroke_of(pen), " d=\"");
        for (std::size_t k = 0; k < spots.size(); ++k)
            put(k == 0 ? "M" : k == 1 ? "L" : " ", decimal(spots[k].x), " ", decimal(spots[k].y));
        put("\">", title_element(name), "</path>\n");
    }
    void dot(const Spot& at, double radius, Colour colour, const std::string& name) override {
        put("<circle", attribute("cx", decimal(at.x)), attribute("cy", decimal(at.y)),
            attribute("r", decimal(radius)), attribute("fill", colour_of(colour)),
            attribute("stroke", paper_), ">", title_element(name), "</circle>\n");
    }
    void text(const Text& text) override {
        const std::string place =
            text.angle == 0 ? joined("translate(", decimal(text.at.x), " ", decimal(text.at.y), ")")
                            : joined("translate(", decimal(text.at.x), " ", decimal(text.at.y),
                                     ") rotate(", decimal(text.angle), ")");
        if (text.is_on_paper)
            put("<rect", box_of(under(text)), attribute("fill", paper_),
                attribute("transform", place), "/>\n");
        put("<text", class_of(text.kind), attribute("fill", colour_of(text.colour)),
            attribute("font-size", decimal(text.size)), attribute("transform", place));
        constexpr const char* anchors[] = {"start", "middle", "end"};
        if (text.anchor != Anchor::start)
            put(attribute("text-anchor", anchors[static_cast<int>(text.anchor)]));
        put(">");
        for (const Words& run : text.words)
            put(run.italic ? "<tspan font-style=\"italic\">" : "", escaped(run.text),
                run.italic ? "</tspan>" : "");
        put("</text>\n");
    }
    void clip(const Box& box) override {
        const std::string name = joined("clip", std::to_string(++clips_));
        put("<clipPath", attribute("id", name), "><rect", box_of(box), "/></clipPath>\n<g",
            attribute("clip-path", joined("url(#", name, ")")), ">\n");
    }
    void end_clip() override { put("</g>\n"); }
    std::string finished() override {
        put("</svg>\n");
        return std::move(out_);
    }

private:
    template <class... Parts>
    void put(const Parts&... parts) {
        ((out_ += parts), ...);
    }

    std::string out_, paper_;
    int clips_ = 0;
};

}  // namespace

std::unique_ptr<Canvas> svg_canvas(double width, double height, Colour paper,
                                   const std::string& title) {
    return std::make_unique<Svg>(width, height, paper, title);
}

}  // namespace vaprix::cli
