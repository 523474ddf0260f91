// SPDX-License-Identifier: MIT
//
// What a picture is drawn on: SVG, or PDF and PNG by cairo. Coordinates are from the upper left corner in pixels, in points
// of PDF.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vaprix::cli {

struct Spot {
    double x, y;
};
struct Box {
    double left, top, width, height;
    [[nodiscard]] double right() const noexcept { return left + width; }
    [[nodiscard]] double bottom() const noexcept { return top + height; }
};

using Colour = std::uint32_t;  // 0xRRGGBB

struct Pen {
    Colour colour;
    double width;
    std::vector<double> dashes;
};

// A symbol of a quantity is in italics.
struct Words {
    std::string text;
    bool italic = false;
};
enum class Anchor { start, middle, end };
struct Text {
    std::vector<Words> words;
    Spot at;  // on the base line
    double size;
    Colour colour;
    Anchor anchor = Anchor::start;
    double angle = 0;          // degrees, clockwise
    bool is_on_paper = false;  // hides what is under it
    std::string kind = {};     // what it labels, for who reads the picture
};

class Canvas {
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    virtual void rectangle(const Box& box, const Pen& pen) = 0;
    // A polyline, named by what it is.
    virtual void line(const std::vector<Spot>& spots, const Pen& pen, const std::string& kind,
                      const std::string& name) = 0;
    virtual void dot(const Spot& at, double radius, Colour colour, const std::string& name) = 0;
    virtual void text(const Text& text) = 0;
    // What is drawn from here to end_clip() is seen inside the box alone.
    virtual void clip(const Box& box) = 0;
    virtual void end_clip() = 0;
    virtual std::string finished() = 0;  // the file
};

enum class Format { svg, pdf, png };
// Throws Error of a format that the command was built without.
std::unique_ptr<Canvas> canvas_of(Format format, double width, double height, Colour paper,
                                  const std::string& title);
std::unique_ptr<Canvas> svg_canvas(double width, double height, Colour paper,
                                   const std::string& title);
std::unique_ptr<Canvas> cairo_canvas(Format format, double width, double height, Colour paper,
                                     const std::string& title);

constexpr const char* typeface = "DejaVu Sans";  // or one as wide, such as Verdana
// The width of a text by its size, and what is hidden under it, from the beginning of its base line.
double width_of(const std::vector<Words>& words, double size);
Box under(const Text& text);

}  // namespace vaprix::cli
