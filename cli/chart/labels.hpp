// SPDX-License-Identifier: MIT
//
// Places for labels along lines, of which none overlaps another.
#pragma once

#include <optional>
#include <vector>

#include "canvas.hpp"

namespace vaprix::cli {

// A rectangle in any direction; the angle in degrees, clockwise.
struct Tilted {
    Spot centre;
    double width, height, angle;
};

class Labels {
public:
    explicit Labels(const Box& plot) : plot_(plot) {}

    // A line that labels of others had better not cover; those of one number are one line.
    void avoid(const std::vector<Spot>& line, int number, double weight);
    void take(const Tilted& label) { taken_.push_back(label); }
    [[nodiscard]] bool is_free(const Tilted& label) const;
    // The weight of the lines that a label would cover, but for those of its own number.
    [[nodiscard]] double covered(const Tilted& label, int number) const;

    // Takes the best free place along a line for a label of this size; none if each would cover too much or where the
    // line is too short or bent. `preferred` is how far along the line from 0 to 1.
    std::optional<Tilted> place(const std::vector<Spot>& line, int number, double width,
                                double height, double preferred);

private:
    struct Avoided {
        Spot from, to;
        int number;
        double weight;
    };

    Box plot_;
    std::vector<Tilted> taken_;
    std::vector<Avoided> avoided_;
};

}  // namespace vaprix::cli
