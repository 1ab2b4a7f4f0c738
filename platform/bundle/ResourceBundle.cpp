#include "platform/bundle/ResourceBundle.h"

#include <filesystem>
#include <optional>
#include <vector>

#include <dlfcn.h>

namespace Platform {

namespace {

namespace fs = std::filesystem;

constexpr int levelsToPrefix = 3;

// The file that the code at an address was loaded from.
std::optional<std::string> imageOf(const void* address)
{
    Dl_info info{};
    std::error_code error;
    // The program itself is named as it was called, which may be relative to
    // a folder that is no longer the current one.
    const bool isLibrary = dladdr(address, &info) != 0 && info.dli_fname != nullptr &&
                           std::string_view(info.dli_fname).find(".so") != std::string_view::npos;
    const fs::path named = isLibrary ? fs::path(info.dli_fname) : fs::path("/proc/self/exe");
    const fs::path image = fs::canonical(named, error);
    if (error) return std::nullopt;
    return image.string();
}

void addPrefixFolders(std::vector<std::string>& folders, fs::path below)
{
    for (int level = 0; level <= levelsToPrefix && below.has_relative_path(); ++level) {
        folders.push_back((below / "share/pellora").string());
        below = below.parent_path();
    }
}

std::vector<std::string> libraryFolders(const void* inLibrary)
{
    std::vector<std::string> folders;
    if (const auto image = imageOf(inLibrary)) {
        const auto package = innermostPackage(*image);
        if (package) {
            if (const auto bundle = Bundle::open(*package)) folders.push_back(bundle->resourcePath());
        }
        addPrefixFolders(folders, fs::path(package.value_or(*image)).parent_path());
    }
    folders.emplace_back(PELLORA_INSTALLED_RESOURCES);
    return folders;
}

}  // namespace

std::shared_ptr<Bundle> findResourceBundle(std::string_view name, const void* inLibrary)
{
    std::vector<std::string> folders{Bundle::main().resourcePath()};
    for (std::string& folder : libraryFolders(inLibrary)) folders.push_back(std::move(folder));
    folders.push_back(Bundle::main().bundlePath());
    for (const std::string& folder : folders) {
        if (auto bundle = Bundle::open(folder + "/" + std::string(name) + ".bundle")) return bundle;
    }
    return nullptr;
}

}  // namespace Platform
