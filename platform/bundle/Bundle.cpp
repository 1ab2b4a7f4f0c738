#include "platform/bundle/Bundle.h"

#include <sys/stat.h>
#include <unistd.h>

#include "platform/bundle/internal/LanguageOrder.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

bool isFolder(const std::string& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool exists(const std::string& path)
{
    return ::access(path.c_str(), F_OK) == 0;
}

std::string runningProgram()
{
    const std::string link = SystemRoots::shared().proc() + "/self/exe";
    std::string target(4096, '\0');
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    target.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    constexpr std::string_view deleted = " (deleted)";
    if (target.ends_with(deleted) && !exists(target)) target.resize(target.size() - deleted.size());
    return target;
}

std::string parentFolder(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool staysInside(std::string_view name)
{
    for (const auto& component : pathComponents(name)) {
        if (component == ".." || component == "/") return false;
    }
    return !name.empty();
}

}  // namespace

Bundle::Bundle(std::string path) : path_(std::move(path))
{
    while (path_.size() > 1 && path_.back() == '/') path_.pop_back();
    isFlat_ = !isFolder(path_ + "/Contents");
    contents_ = isFlat_ ? path_ : path_ + "/Contents";
    std::string file = contents_ + "/Info.plist";
    if (isFlat_ && !exists(file)) file = path_ + "/Resources/Info.plist";
    if (const auto list = PropertyList::read(file); list && list->dictionary()) info_ = *list->dictionary();
}

std::shared_ptr<Bundle> Bundle::open(const std::string& path)
{
    if (!isFolder(path)) return nullptr;
    return std::shared_ptr<Bundle>(new Bundle(path));
}

std::shared_ptr<Bundle> Bundle::ofProgram(const std::string& executable)
{
    auto bundle = std::shared_ptr<Bundle>(new Bundle(innermostPackage(executable).value_or(parentFolder(executable))));
    bundle->program_ = executable;
    return bundle;
}

Bundle& Bundle::main()
{
    return Shared<Bundle>::get([] { return ofProgram(runningProgram()); });
}

std::optional<std::string> Bundle::bundleIdentifier() const
{
    const PropertyList* value = info_.find("CFBundleIdentifier");
    if (!value || !value->text() || value->text()->empty()) return std::nullopt;
    return *value->text();
}

std::optional<std::string> Bundle::executablePath() const
{
    const PropertyList* value = info_.find("CFBundleExecutable");
    const std::string name = value && value->text() ? *value->text() : "";
    const bool isFileName = !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
                            name.find('\0') == std::string::npos;
    if (isFileName) return contents_ + (isFlat_ ? "/" : "/MacOS/") + name;
    return program_.empty() ? std::nullopt : std::optional(program_);
}

std::optional<PropertyList> Bundle::objectForInfoDictionaryKey(std::string_view key) const
{
    if (auto localized = tableValue("InfoPlist.strings", key)) return localized;
    const PropertyList* value = info_.find(key);
    return value ? std::optional(*value) : std::nullopt;
}

std::string Bundle::resourcePath() const
{
    const std::string folder = contents_ + "/Resources";
    return isFlat_ && !isFolder(folder) ? path_ : folder;
}

std::vector<std::string> Bundle::resourceFolders() const
{
    std::vector<std::string> languages = userLanguages();
    const PropertyList* region = info_.find("CFBundleDevelopmentRegion");
    if (region && region->text() && staysInside(*region->text())) languages.push_back(*region->text());
    for (const char* last : {"Base", "en"}) languages.emplace_back(last);

    const std::string root = resourcePath();
    std::vector<std::string> folders;
    for (const auto& language : languages) folders.push_back(root + "/" + language + ".lproj");
    folders.push_back(root);
    return folders;
}

std::optional<Url> Bundle::urlForResource(std::string_view name, std::string_view extension) const
{
    if (!staysInside(name) || extension.find('/') != std::string_view::npos) return std::nullopt;
    std::string file(name);
    if (!extension.empty()) file.append(extension.front() == '.' ? "" : ".").append(extension);
    for (const auto& folder : resourceFolders()) {
        const std::string path = folder + "/" + file;
        if (exists(path)) return Url::fromPath(path);
    }
    return std::nullopt;
}

// The tables of all languages in one, a nearer language's entry before a farther one's.
Bundle::Table Bundle::loadTable(const std::string& fileName) const
{
    Table table;
    for (const auto& folder : resourceFolders()) {
        const auto list = PropertyList::read(folder + "/" + fileName);
        if (!list || !list->dictionary()) continue;
        for (const auto& [key, value] : *list->dictionary()) table.emplace(key, value);
    }
    return table;
}

std::optional<PropertyList> Bundle::tableValue(const std::string& fileName, std::string_view key) const
{
    std::lock_guard lock(tablesMutex_);
    auto table = tables_.find(fileName);
    if (table == tables_.end()) table = tables_.emplace(fileName, loadTable(fileName)).first;
    const auto entry = table->second.find(std::string(key));
    return entry == table->second.end() ? std::nullopt : std::optional(entry->second);
}

std::string Bundle::localizedString(std::string_view key, std::string_view defaultText) const
{
    const auto value = tableValue("Localizable.strings", key);
    if (value && value->text()) return *value->text();
    return std::string(defaultText.empty() ? key : defaultText);
}

}  // namespace Platform
