#pragma once

#include <string>

#include "platform/ui/Image.h"

namespace Platform {

// A typeface in a size in points. A value. The metrics are the typeface's own
// and need the main thread.
class Font {
public:
    // The desktop's own typeface.
    static Font system(double size, FontWeight weight = FontWeight::regular) { return {"", size, weight}; }
    static Font boldSystem(double size) { return system(size, FontWeight::bold); }
    static Font named(std::string family, double size, FontWeight weight = FontWeight::regular)
    {
        return {std::move(family), size, weight};
    }

    // Empty for the desktop's own.
    const std::string& family() const { return family_; }
    // Sizes that are not positive count as the desktop's usual one.
    double pointSize() const;
    FontWeight weight() const { return weight_; }

    // Heights above and depth below the base line, in points, and the gap between lines.
    double capHeight() const;
    double ascender() const;
    double descender() const;
    double leading() const;

    friend bool operator==(const Font&, const Font&) = default;

private:
    Font(std::string family, double size, FontWeight weight) : family_(std::move(family)), size_(size), weight_(weight)
    {
    }

    std::string family_;
    double size_;
    FontWeight weight_;
};

}  // namespace Platform
