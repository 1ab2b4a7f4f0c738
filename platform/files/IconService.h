#pragma once

#include <string>
#include <string_view>

#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Platform {

// The desktop's pictures for files and kinds of files. Answers null for what
// has none; without a drawing room there are none at all. Thread: main.
class IconService {
public:
    static IconService& shared();
    virtual ~IconService() = default;

    // For what stands at the path: an application's own, else its kind's.
    virtual ImageRef iconForFile(const std::string& path) = 0;
    // For a type identifier, as TypeIdentifier.h gives it.
    virtual ImageRef iconForContentType(std::string_view typeIdentifier) = 0;
    // For a name ending without its dot, known or not.
    virtual ImageRef iconForFileType(std::string_view extension) = 0;
    // The picture that a file holds; null when it cannot be read as one.
    virtual ImageRef imageFromFile(const Url& url) = 0;
};

}  // namespace Platform
