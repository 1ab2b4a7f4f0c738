#pragma once

#include <string>

namespace Fennick {

// A point of a polyline. A value; any thread.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

// "(3.0, 2.5)": each coordinate in the shortest decimal form that reads back to it.
std::string description(const Point& point);

}  // namespace Fennick
