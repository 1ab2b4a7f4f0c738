#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// One folder of a theme: the icon sizes, in pixels, that its files are for.
struct IconFolder {
    enum class Kind { fixed, scalable, threshold };

    std::string path;
    int size = 0;
    int scale = 1;
    Kind kind = Kind::threshold;
    int smallest = 0;
    int largest = 0;
    int threshold = 2;

    // How far a size lies from those that the files are for; 0 when they fit.
    int distance(int pixels) const;
};

// What the "index.theme" file of an icon theme says.
struct IconThemeIndex {
    std::vector<std::string> inherits;
    std::vector<IconFolder> folders;

    static IconThemeIndex parse(std::string_view text);
};

}  // namespace Platform
