#pragma once

#include <compare>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// A location: a file's, kept as its path with a mark for folders, or any other
// URL, kept as its text. A value; compares by its text, so a folder location
// differs from an unmarked one of the same path.
class Url {
public:
    // A file location. Marked as a folder when the path ends in a slash or a
    // folder stands there now.
    static Url fromPath(std::string_view path);
    // A file location with the mark given; does not touch the disk.
    static Url fromPath(std::string_view path, bool isDirectory);
    // Any URL with a scheme; absent when the text is not one (white space,
    // control or non-ASCII characters, a broken percent escape, no scheme).
    static std::optional<Url> parse(std::string_view text);

    bool isFileUrl() const { return scheme_ == "file"; }
    const std::string& scheme() const { return scheme_; }

    // The whole URL, a file's path percent-encoded, a folder's with its slash.
    std::string absoluteString() const;

    // For a file its decoded path, else the path part of the text, decoded;
    // in both cases without trailing slash, except for the root.
    std::string path() const;
    // Host and query part of a URL that is no file's; absent where it has none.
    std::optional<std::string> host() const;
    std::optional<std::string> query() const;
    bool hasDirectoryPath() const { return isDirectory_; }

    // "/", "a", "b.app" for /a/b.app.
    std::vector<std::string> pathComponents() const;
    std::string lastPathComponent() const;
    // Without its dot; empty when there is none.
    std::string pathExtension() const;

    // File locations only; other URLs are returned unchanged.
    Url appendingPathComponent(std::string_view name, bool isDirectory = false) const;
    Url deletingLastPathComponent() const;
    // Without "." and "..", by text alone.
    Url standardized() const;
    // With every symbolic link of the path followed; unchanged where nothing stands there.
    Url resolvingSymlinksInPath() const;

    friend bool operator==(const Url&, const Url&) = default;
    friend auto operator<=>(const Url&, const Url&) = default;

private:
    Url() = default;

    std::string scheme_;
    std::string text_;  // a file's path without trailing slash, else the whole URL
    bool isDirectory_ = false;
};

// The components of a path, the root "/" being the first of an absolute one.
// Empty pieces are dropped: "/a//b/" gives "/", "a", "b".
std::vector<std::string> pathComponents(std::string_view path);
// Their inverse: "/", "a", "b" gives "/a/b"; nothing gives the empty text.
std::string pathWithComponents(const std::vector<std::string>& components);

// Text with every byte outside `allowed` written as %XX.
std::string percentEncoded(std::string_view text, std::string_view allowedPunctuation);
// Text with its %XX escapes decoded; absent when one is broken.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace Platform

template <>
struct std::hash<Platform::Url> {
    std::size_t operator()(const Platform::Url& url) const noexcept
    {
        return std::hash<std::string>()(url.absoluteString());
    }
};
