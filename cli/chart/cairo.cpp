// SPDX-License-Identifier: MIT
//
// PDF and PNG.
#include <cairo-pdf.h>
#include <cairo.h>

#include <cmath>
#include <numbers>

#include "canvas.hpp"
#include "units.hpp"

namespace vaprix::cli {
namespace {

cairo_status_t append(void* to, const unsigned char* data, unsigned int size) {
    static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), size);
    return CAIRO_STATUS_SUCCESS;
}

struct Destroyer {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

class Cairo : public Canvas {
public:
    Cairo(Format format, double width, double height, Colour paper, const std::string& title)
        : format_(format), paper_(paper) {
        surface_.reset(format == Format::pdf
                           ? cairo_pdf_surface_create_for_stream(append, &out_, width, height)
                           : cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width),
                                                        static_cast<int>(height)));
        if (format == Format::pdf)
            cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
        context_.reset(cairo_create(surface_.get()));
        cairo_set_line_join(context_.get(), CAIRO_LINE_JOIN_ROUND);
        paint(paper);
        cairo_paint(context_.get());
    }
    void rectangle(const Box& box, const Pen& pen) override {
        cairo_new_path(context_.get());
        cairo_rectangle(context_.get(), box.left, box.top, box.width, box.height);
        stroke(pen);
    }
    void line(const std::vector<Spot>& spots, const Pen& pen, const std::string& /* kind */,
              const std::string& /* name */) override {
        cairo_new_path(context_.get());
        for (const Spot& spot : spots) cairo_line_to(context_.get(), spot.x, spot.y);
        stroke(pen);
    }
    void dot(const Spot& at, double radius, Colour colour, const std::string& /* name */) override {
        cairo_new_path(context_.get());
        cairo_arc(context_.get(), at.x, at.y, radius, 0, 2 * std::numbers::pi);
        paint(colour);
        cairo_fill_preserve(context_.get());
        stroke({paper_, 1, {}});
    }
    void text(const Text& text) override {
        cairo_save(context_.get());
        cairo_new_path(context_.get());
        cairo_translate(context_.get(), text.at.x, text.at.y);
        cairo_rotate(context_.get(), text.angle * std::numbers::pi / 180);
        cairo_set_font_size(context_.get(), text.size);
        if (text.is_on_paper) {
            const Box box = under(text);
            cairo_rectangle(context_.get(), box.left, box.top, box.width, box.height);
            paint(paper_);
            cairo_fill(context_.get());
        }
        paint(text.colour);
        double width = 0;
        for (const Words& run : text.words) {
            cairo_text_extents_t extents;
            choose(run);
            cairo_text_extents(context_.get(), run.text.c_str(), &extents);
            width += extents.x_advance;
        }
        cairo_move_to(context_.get(), -0.5 * static_cast<int>(text.anchor) * width, 0);
        for (const Words& run : text.words) {
            choose(run);
            cairo_show_text(context_.get(), run.text.c_str());
        }
        cairo_restore(context_.get());
    }
    void clip(const Box& box) override {
        cairo_save(context_.get());
        cairo_new_path(context_.get());
        cairo_rectangle(context_.get(), box.left, box.top, box.width, box.height);
        cairo_clip(context_.get());
    }
    void end_clip() override { cairo_restore(context_.get()); }
    std::string finished() override {
        cairo_status_t status = cairo_status(context_.get());
        if (status == CAIRO_STATUS_SUCCESS && format_ == Format::png)
            status = cairo_surface_write_to_png_stream(surface_.get(), append, &out_);
        cairo_surface_finish(surface_.get());
        if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface_.get());
        if (status != CAIRO_STATUS_SUCCESS)
            throw Error(std::string("cairo cannot draw this: ") + cairo_status_to_string(status));
        return std::move(out_);
    }

private:
    void paint(Colour colour) {
        const auto part = [&](unsigned shift) { return (colour >> shift & 0xFF) / 255.0; };
        cairo_set_source_rgb(context_.get(), part(16), part(8), part(0));
    }
    void stroke(const Pen& pen) {
        paint(pen.colour);
        cairo_set_line_width(context_.get(), pen.width);
        cairo_set_dash(context_.get(), pen.dashes.data(), static_cast<int>(pen.dashes.size()), 0);
        cairo_stroke(context_.get());
    }
    void choose(const Words& run) {
        cairo_select_font_face(context_.get(), typeface,
                               run.italic ? CAIRO_FONT_SLANT_OBLIQUE : CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
    }
    const Format format_;
    const Colour paper_;
    std::string out_;
    std::unique_ptr<cairo_surface_t, Destroyer> surface_;
    std::unique_ptr<cairo_t, Destroyer> context_;
};

}  // namespace

std::unique_ptr<Canvas> cairo_canvas(Format format, double width, double height, Colour paper,
                                     const std::string& title) {
    return std::make_unique<Cairo>(format, width, height, paper, title);
}

}  // namespace vaprix::cli
