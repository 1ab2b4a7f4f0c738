#pragma once

#include <cmath>

// Points, sizes and rectangles of the drawing room. The origin is the top left
// corner and y grows downwards, in images, layers and views alike.
namespace Platform {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;

    bool isFinite() const { return std::isfinite(width) && std::isfinite(height); }
    // Something can be drawn into it.
    bool isDrawable() const { return isFinite() && width > 0 && height > 0; }
};

struct Rect {
    Point origin;
    Size size;
    friend bool operator==(const Rect&, const Rect&) = default;

    static Rect of(double x, double y, double width, double height) { return {{x, y}, {width, height}}; }

    double minX() const { return origin.x; }
    double minY() const { return origin.y; }
    double maxX() const { return origin.x + size.width; }
    double maxY() const { return origin.y + size.height; }
    Point center() const { return {origin.x + size.width / 2, origin.y + size.height / 2}; }
    bool isFinite() const { return std::isfinite(origin.x) && std::isfinite(origin.y) && size.isFinite(); }
    // The empty rectangle stands for "the whole" where an image is drawn.
    bool isEmpty() const { return !(size.width > 0 && size.height > 0); }
    Rect insetBy(double dx, double dy) const
    {
        return of(origin.x + dx, origin.y + dy, size.width - 2 * dx, size.height - 2 * dy);
    }
    bool contains(Point point) const
    {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }
};

}  // namespace Platform
