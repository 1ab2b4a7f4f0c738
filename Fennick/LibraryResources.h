#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Fennick/LocalizedText.h"
#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"

namespace Fennick {

// The bundle LIBRARY_LIBRARY.bundle, sought as findResourceBundle does;
// `inLibrary` is an address of the library's code. A program without it ends.
std::shared_ptr<Platform::Bundle> requiredResourceBundle(const std::string& library, const void* inLibrary);

// The resource bundle of the library that `Finder` names (`library`) and whose
// image it tells (`address()`). Thread: any.
template <typename Finder>
class LibraryResources {
public:
    LibraryResources() = delete;

    // Sought on first use: in the main bundle's resource folder, in the
    // library's own, in the main bundle's folder. A program without it ends.
    static const Platform::Bundle& bundle() { return *Platform::Shared<Found>::get(find).bundle; }

    // A text of the library's table in the user's language, with the number or
    // text that its placeholder takes; see localizedText.
    template <typename... Argument>
    static std::string text(std::string_view key, const Argument&... argument)
    {
        return localizedText(bundle(), key, argument...);
    }

    // What is kept once found; a test starts it afresh by Shared<Found>::Override.
    struct Found {
        std::shared_ptr<Platform::Bundle> bundle;
    };

private:
    static std::unique_ptr<Found> find()
    {
        return std::make_unique<Found>(Found{requiredResourceBundle(Finder::library, Finder::address())});
    }
};

}  // namespace Fennick
