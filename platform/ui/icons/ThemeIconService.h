#pragma once

#include <map>

#include "platform/files/IconService.h"

namespace Platform {

// Icons of files: an application's own from its bundle, an icon set's own
// picture, else the icon theme's for the kind of file. Images of 32 points
// that load the resolution that is drawn. What was found is remembered, an
// application's as long as its information file stays as it is. Thread: main.
class ThemeIconService final : public IconService {
public:
    ImageRef iconForFile(const std::string& path) override;
    ImageRef iconForContentType(std::string_view typeIdentifier) override;
    ImageRef iconForFileType(std::string_view extension) override;
    ImageRef imageFromFile(const Url& url) override;

private:
    ImageRef applicationIcon(const std::string& path);

    struct Known {
        long long changed;
        ImageRef icon;
    };
    std::map<std::string, Known> applications_;
    std::map<std::string, ImageRef, std::less<>> types_;
};

}  // namespace Platform
