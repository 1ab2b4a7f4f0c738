#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/Image.h"

namespace Platform {

// Icons by name from the desktop's themes: the named theme, the themes that it
// inherits, then "hicolor", then loose files. What was looked up is remembered.
// Any thread, as images that show icons are drawn on any.
class IconTheme {
public:
    // The theme of the user's toolkit settings, or "Adwaita", in the data folders of the session.
    static IconTheme& shared();
    // Folders that hold themes, first wins; the theme's folder name.
    IconTheme(std::vector<std::string> searchPaths, std::string themeName);
    ~IconTheme();

    // That many pixels square, scaled from the nearest size where there is no
    // such file; null when no theme has the icon.
    ImageRef icon(const std::string& name, int pixels);
    // The first of the names that a theme has.
    ImageRef icon(const std::vector<std::string>& names, int pixels);
    // The file that icon() reads; absent when there is none.
    std::optional<std::string> path(const std::string& name, int pixels);

private:
    struct Theme;
    const Theme& theme(const std::string& name);
    std::vector<std::string> lookupOrder();
    std::optional<std::string> pathInTheme(const Theme& theme, const std::string& name, int pixels) const;
    std::optional<std::string> loosePath(const std::string& name) const;

    std::vector<std::string> searchPaths_;
    std::string themeName_;
    std::map<std::string, std::unique_ptr<Theme>> themes_;
    std::map<std::pair<std::string, int>, ImageRef> icons_;
    std::recursive_mutex mutex_;  // of both maps
};

}  // namespace Platform
