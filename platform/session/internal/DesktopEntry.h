#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// A file of the freedesktop Desktop Entry format. Keys are those of the group
// "Desktop Entry"; lines that are not changed stay as they are, comments,
// translations and other groups included. A value.
class DesktopEntry {
public:
    static DesktopEntry parse(std::string_view text);

    // Absent when there is no such key. Escapes (\s \n \t \r \\) are undone.
    std::optional<std::string> value(std::string_view key) const;
    // Whether the value is "true".
    bool isTrue(std::string_view key) const { return value(key) == "true"; }
    void set(std::string_view key, std::string_view value);
    void remove(std::string_view key);

    std::string text() const;

private:
    std::optional<std::size_t> lineOf(std::string_view key) const;
    std::size_t endOfGroup();

    std::vector<std::string> lines_;
};

// A command's argument as it stands in the value of "Exec": quoted where it
// has to be, a percent sign doubled.
std::string execArgument(std::string_view argument);
// The first argument of such a value; empty when there is none.
std::string execProgram(std::string_view exec);

}  // namespace Platform
