#include "platform/bundle/UserDefaults.h"

#include <filesystem>
#include <utility>

#include "platform/bundle/Bundle.h"
#include "platform/bundle/internal/DefaultsFile.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"
#include "platform/runtime/Url.h"

namespace Platform {

namespace {

std::string pathOfSuite(std::string_view name)
{
    // No name leads out of the folder, and none is hidden in it.
    std::string file = percentEncoded(name, "-._~ @+,=");
    if (file.empty() || file.front() == '.') file.insert(0, "_");
    return Environment::shared().configHome() + "/user-defaults/" + file + ".plist";
}

std::string ownSuite()
{
    if (const auto identifier = Bundle::main().bundleIdentifier()) return *identifier;
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? "program" : program.filename().string();
}

bool canBeStored(const std::string& key, const std::optional<PropertyList>& value)
{
    if (!value) return true;
    const auto stored = PropertyList(PropertyList::Dictionary{{key, *value}}).binary();
    return stored && PropertyList::parse(*stored);
}

// Takes out what no property list can hold, so that it never stands in the way of the rest.
bool dropUnstorable(DefaultsChanges& changes)
{
    const std::size_t dropped = std::erase_if(changes, [](const auto& change) {
        const bool isRefused = !canBeStored(change.first, change.second);
        if (isRefused) log("User defaults: the value for \"" + change.first + "\" cannot be stored");
        return isRefused;
    });
    return dropped > 0;
}

}  // namespace

std::shared_ptr<UserDefaults> UserDefaults::standard()
{
    return Shared<UserDefaults>::get([] { return suite(ownSuite()); }).shared_from_this();
}

std::shared_ptr<UserDefaults> UserDefaults::suite(std::string_view name)
{
    return std::shared_ptr<UserDefaults>(new UserDefaults(pathOfSuite(name)));
}

UserDefaults::UserDefaults(std::string path) : file_(std::make_unique<DefaultsFile>(std::move(path))) {}

UserDefaults::~UserDefaults() = default;

const std::string& UserDefaults::path() const
{
    return file_->path();
}

std::optional<PropertyList> UserDefaults::value(std::string_view key) const
{
    std::lock_guard lock(mutex_);
    if (const auto changed = pending_.find(key); changed != pending_.end()) return changed->second;
    const PropertyList* stored = file_->values().find(key);
    return stored ? std::optional(*stored) : std::nullopt;
}

std::optional<std::string> UserDefaults::string(std::string_view key) const
{
    const auto stored = value(key);
    return stored && stored->text() ? std::optional(*stored->text()) : std::nullopt;
}

std::optional<PropertyList::Data> UserDefaults::data(std::string_view key) const
{
    const auto stored = value(key);
    return stored && stored->data() ? std::optional(*stored->data()) : std::nullopt;
}

std::optional<Date> UserDefaults::date(std::string_view key) const
{
    const auto stored = value(key);
    return stored ? stored->date() : std::nullopt;
}

std::optional<std::int64_t> UserDefaults::integer(std::string_view key) const
{
    const auto stored = value(key);
    return stored ? stored->integer() : std::nullopt;
}

std::optional<double> UserDefaults::number(std::string_view key) const
{
    const auto stored = value(key);
    return stored ? stored->number() : std::nullopt;
}

std::optional<bool> UserDefaults::boolean(std::string_view key) const
{
    const auto stored = value(key);
    return stored ? stored->boolean() : std::nullopt;
}

std::optional<std::vector<std::string>> UserDefaults::stringArray(std::string_view key) const
{
    const auto stored = value(key);
    if (!stored || !stored->array()) return std::nullopt;
    std::vector<std::string> texts;
    for (const PropertyList& element : *stored->array()) {
        if (!element.text()) return std::nullopt;
        texts.push_back(*element.text());
    }
    return texts;
}

std::vector<std::string> UserDefaults::keys() const
{
    std::lock_guard lock(mutex_);
    std::vector<std::string> keys;
    for (const auto& [key, value] : file_->values()) {
        if (!pending_.contains(key)) keys.push_back(key);
    }
    for (const auto& [key, value] : pending_) {
        if (value) keys.push_back(key);
    }
    return keys;
}

void UserDefaults::set(std::string_view key, PropertyList value)
{
    change(key, std::move(value));
}

void UserDefaults::setStringArray(std::string_view key, const std::vector<std::string>& texts)
{
    change(key, PropertyList::Array(texts.begin(), texts.end()));
}

void UserDefaults::remove(std::string_view key)
{
    change(key, std::nullopt);
}

void UserDefaults::change(std::string_view key, std::optional<PropertyList> value)
{
    std::lock_guard lock(mutex_);
    pending_.insert_or_assign(std::string(key), std::move(value));
    auto saved = file_->save(pending_);
    if (!saved && dropUnstorable(pending_)) saved = file_->save(pending_);
    if (saved) {
        pending_.clear();
    } else {
        log("User defaults: " + saved.error().message());
    }
}

}  // namespace Platform
