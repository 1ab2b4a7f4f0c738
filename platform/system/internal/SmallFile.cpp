#include "platform/system/internal/SmallFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Trim.h"
#include "platform/runtime/Utf8.h"

namespace Platform {

namespace {

std::optional<std::string> readUpTo(std::size_t most, int descriptor)
{
    std::string content;
    char chunk[4096];
    while (content.size() < most) {
        const ssize_t count = ::read(descriptor, chunk, std::min(sizeof chunk, most - content.size()));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        content.append(chunk, static_cast<std::size_t>(count));
    }
    return content;
}

std::string unquoted(std::string_view value)
{
    const bool isQuoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'');
    if (!isQuoted) return std::string(value);
    const char quote = value.front();
    std::string text;
    for (std::size_t i = 1; i < value.size() && value[i] != quote; ++i) {
        if (value[i] == '\\' && quote == '"' && i + 1 < value.size()) ++i;
        text += value[i];
    }
    return text;
}

}  // namespace

std::optional<std::string> readSmallFile(const std::string& path, std::size_t most)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file ? readUpTo(most, file.get()) : std::nullopt;
}

std::optional<std::string> readSlowFile(const std::string& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file ? readUpTo(4096, file.get()) : std::nullopt;
}

std::optional<std::string> readLine(const std::string& path)
{
    const auto content = readSmallFile(path);
    const std::string_view line = content ? trimmed(*content) : "";
    if (line.empty()) return std::nullopt;
    return std::string(line);
}

std::optional<long long> readNumber(const std::string& path)
{
    const auto content = readSmallFile(path);
    return content ? parseNumber(trimmed(*content)) : std::nullopt;
}

std::optional<std::string> shellValue(std::string_view content, std::string_view key)
{
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        const std::string_view line = trimmed(content.substr(0, end));
        content.remove_prefix(std::min(end + 1, content.size()));
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && line.substr(0, equals) == key) {
            return repairedUtf8(unquoted(line.substr(equals + 1)));
        }
    }
    return std::nullopt;
}

std::optional<long long> parseNumber(std::string_view text)
{
    long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::vector<std::string> entriesWithPrefix(const std::string& folder, std::string_view prefix)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(folder.c_str()), &::closedir);
    while (directory) {
        const dirent* entry = ::readdir(directory.get());
        if (!entry) break;
        const std::string_view name = entry->d_name;
        if (name.starts_with(prefix) && name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

}  // namespace Platform
