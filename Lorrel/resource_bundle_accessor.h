#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/bundle/Bundle.h"

namespace Lorrel {

// Stands for the image that holds the library.
class BundleFinder {
public:
    BundleFinder() = delete;
    static const void* address();
};

// The library's resource bundle, Lorrel_Lorrel.bundle. Thread: any.
class Resources {
public:
    Resources() = delete;

    // Sought on first use: in the main bundle's resource folder, in the
    // library's own, in the main bundle's folder. A program without it ends.
    static const Platform::Bundle& bundle();

    // A text of the library's table in the user's language; see localizedText.
    static std::string text(std::string_view key);
    static std::string text(std::string_view key, std::int64_t number);
    static std::string text(std::string_view key, std::string_view argument);

    // What is kept once found; a test starts it afresh by Shared<Found>::Override.
    struct Found {
        std::shared_ptr<Platform::Bundle> bundle;
    };
};

}  // namespace Lorrel
