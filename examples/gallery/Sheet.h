#pragma once

#include <string>
#include <vector>

#include "platform/ui/Image.h"

// A contact sheet: rows of captioned pictures under headings.
class Sheet {
public:
    explicit Sheet(double width) : width_(width) {}

    void addHeading(std::string text);
    // A cell as large as the picture, or larger where the caption is; rows break at the sheet's width.
    void add(std::string caption, Platform::ImageRef picture);

    Platform::ImageRef image() const;

private:
    struct Cell {
        std::string caption;
        Platform::ImageRef picture;  // null for a heading
        Platform::Rect place;
    };

    void beginRow();

    double width_;
    double x_ = 0;
    double y_ = 16;
    double rowHeight_ = 0;
    std::vector<Cell> cells_;
};
