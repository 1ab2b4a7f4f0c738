#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/bundle/PropertyList.h"

namespace Platform {

class DefaultsFile;

// A program's lasting settings: property-list values by key, in one file a
// suite, shared by all processes that open the suite. A change is on the disk
// when the call returns; a crash at any instant leaves the old or the new file,
// and processes that write at once keep each other's keys. What cannot be saved
// (full or read-only disk) is logged, stays readable in this process and is
// tried again with the next change. A damaged file is kept beside, as
// "FILE.corrupt-TIME". Thread: any.
class UserDefaults : public std::enable_shared_from_this<UserDefaults> {
public:
    // The program's own suite, under its bundle identifier or, outside a bundle, its file name.
    static std::shared_ptr<UserDefaults> standard();
    // Another suite by its name.
    static std::shared_ptr<UserDefaults> suite(std::string_view name);

    ~UserDefaults();

    // The stored value; the typed readings are absent where the kind differs.
    std::optional<PropertyList> value(std::string_view key) const;
    std::optional<std::string> string(std::string_view key) const;
    std::optional<PropertyList::Data> data(std::string_view key) const;
    std::optional<Date> date(std::string_view key) const;
    std::optional<std::int64_t> integer(std::string_view key) const;
    std::optional<double> number(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    // Absent also when any element is no text.
    std::optional<std::vector<std::string>> stringArray(std::string_view key) const;
    // In no particular order.
    std::vector<std::string> keys() const;

    // Stores the value; one that no property list can hold (text that is not
    // UTF-8) is logged and dropped.
    void set(std::string_view key, PropertyList value);
    void setStringArray(std::string_view key, const std::vector<std::string>& texts);
    void remove(std::string_view key);

    // Where the suite is kept.
    const std::string& path() const;

private:
    explicit UserDefaults(std::string path);
    void change(std::string_view key, std::optional<PropertyList> value);

    mutable std::mutex mutex_;
    const std::unique_ptr<DefaultsFile> file_;
    // Changes that are not on the disk yet; absent values are removals.
    std::map<std::string, std::optional<PropertyList>, std::less<>> pending_;
};

}  // namespace Platform
