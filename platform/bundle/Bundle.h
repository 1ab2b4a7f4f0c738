#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/bundle/PropertyList.h"
#include "platform/runtime/Url.h"

namespace Platform {

// A folder that holds a program or resources in a known order: either
// NAME.app/Contents/{Info.plist,MacOS,Resources}, or flat, with Info.plist and
// the resources in the folder itself (or in its Resources folder).
// Thread: any. What is read from the disk is read once.
class Bundle {
public:
    // The running program's: the innermost bundle folder around its
    // executable; outside any bundle, the executable's folder. A test replaces
    // it by Shared<Bundle>::Override(Bundle::open(...)).
    static Bundle& main();
    // Null when no folder stands at the path.
    static std::shared_ptr<Bundle> open(const std::string& path);

    // Without trailing slash.
    const std::string& bundlePath() const { return path_; }
    Url bundleUrl() const { return Url::fromPath(path_, true); }
    // Absent where the information dictionary has none, or an empty one.
    std::optional<std::string> bundleIdentifier() const;
    // The program named by CFBundleExecutable (which must be a plain file
    // name), whether it exists or not; for a main bundle that names none, the running program.
    std::optional<std::string> executablePath() const;

    // Of Info.plist; empty when that is missing or damaged.
    const PropertyList::Dictionary& infoDictionary() const { return info_; }
    // The value in the user's language (InfoPlist.strings) before that of the dictionary.
    std::optional<PropertyList> objectForInfoDictionaryKey(std::string_view key) const;

    // The folder of the resources, whether it exists or not.
    std::string resourcePath() const;
    // The file NAME.EXTENSION (NAME alone for an empty extension): in the
    // user's language, else in the development language, else unlocalised. Absent
    // when there is none. A name may have folders, but not lead out of the bundle.
    std::optional<Url> urlForResource(std::string_view name, std::string_view extension) const;

    // The key's text in Localizable.strings (a property list, XML or binary),
    // searched like resources; where it has none the default, or the key itself if that is empty.
    std::string localizedString(std::string_view key, std::string_view defaultText = "") const;

    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

private:
    using Table = std::unordered_map<std::string, PropertyList>;

    explicit Bundle(std::string path);
    static std::shared_ptr<Bundle> ofProgram(const std::string& executable);

    std::vector<std::string> resourceFolders() const;
    Table loadTable(const std::string& fileName) const;
    std::optional<PropertyList> tableValue(const std::string& fileName, std::string_view key) const;

    std::string path_;
    std::string contents_;  // where Info.plist stands
    bool isFlat_ = false;
    std::string program_;  // the running program, for a main bundle
    PropertyList::Dictionary info_;

    mutable std::mutex tablesMutex_;
    mutable std::unordered_map<std::string, Table> tables_;
};

// The endings of folders that users see as one thing (".app", ".bundle", ...).
const std::vector<std::string_view>& packageEndings();
// Whether a file name or path ends like a package; letter case does not matter.
bool isPackage(std::string_view name);
// The innermost package folder that the path lies in (not the path itself); absent when there is none.
std::optional<std::string> innermostPackage(std::string_view path);

}  // namespace Platform
