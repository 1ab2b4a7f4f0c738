#include "platform/runtime/Url.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <sys/stat.h>

namespace Platform {

namespace {

constexpr std::string_view pathPunctuation = "-._~/!$&'()*+,;=:@";

bool isAlpha(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexValue(char c)
{
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return path;
}

// RFC 3986, section 3.1; lower-cased.
std::optional<std::string> schemeOf(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isAlpha(text.front())) return std::nullopt;
    std::string scheme;
    for (char c : text.substr(0, colon)) {
        if (!isAlpha(c) && !isDigit(c) && c != '+' && c != '-' && c != '.') return std::nullopt;
        scheme += isAlpha(c) ? static_cast<char>(c | 0x20) : c;
    }
    return scheme;
}

bool hasOnlyUrlCharacters(std::string_view text)
{
    constexpr std::string_view forbidden = "\"<>\\^`{|}";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c <= ' ' || c >= 0x7f || forbidden.find(c) != std::string_view::npos) return false;
        if (c != '%') continue;
        if (i + 2 >= text.size() || hexValue(text[i + 1]) < 0 || hexValue(text[i + 2]) < 0) return false;
    }
    return true;
}

struct Parts {
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
};

Parts partsOf(std::string_view text)
{
    Parts parts;
    std::string_view rest = text.substr(text.find(':') + 1);
    rest = rest.substr(0, rest.find('#'));
    if (const std::size_t mark = rest.find('?'); mark != std::string_view::npos) {
        parts.query = rest.substr(mark + 1);
        rest = rest.substr(0, mark);
    }
    if (rest.starts_with("//")) {
        const std::size_t end = std::min(rest.find('/', 2), rest.size());
        parts.authority = rest.substr(2, end - 2);
        rest = rest.substr(end);
    }
    parts.path = rest;
    return parts;
}

}  // namespace

Url Url::fromPath(std::string_view path)
{
    struct stat status {};
    const bool isFolder = ::stat(std::string(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return fromPath(path, isFolder || path.ends_with('/'));
}

Url Url::fromPath(std::string_view path, bool isDirectory)
{
    Url url;
    url.scheme_ = "file";
    url.text_ = withoutTrailingSlashes(path);
    url.isDirectory_ = isDirectory || url.text_ == "/";
    return url;
}

std::optional<Url> Url::parse(std::string_view text)
{
    auto scheme = schemeOf(text);
    if (!scheme || !hasOnlyUrlCharacters(text)) return std::nullopt;
    const Parts parts = partsOf(text);
    if (*scheme == "file") {
        const auto path = percentDecoded(parts.path);
        if (!path || path->empty() || path->find('\0') != std::string::npos) return std::nullopt;
        return fromPath(*path, path->ends_with('/'));
    }
    Url url;
    url.scheme_ = std::move(*scheme);
    url.text_ = text;
    url.isDirectory_ = parts.path.ends_with('/');
    return url;
}

std::string Url::absoluteString() const
{
    if (!isFileUrl()) return text_;
    std::string text = "file://" + percentEncoded(text_, pathPunctuation);
    if (isDirectory_ && !text.ends_with('/')) text += '/';
    return text;
}

std::string Url::path() const
{
    if (isFileUrl()) return text_;
    return std::string(withoutTrailingSlashes(percentDecoded(partsOf(text_).path).value_or("")));
}

std::optional<std::string> Url::host() const
{
    if (isFileUrl()) return std::nullopt;
    const auto authority = partsOf(text_).authority;
    if (!authority) return std::nullopt;
    std::string_view host =
        authority->substr(authority->find('@') == std::string_view::npos ? 0 : authority->find('@') + 1);
    if (host.starts_with('[')) return std::string(host.substr(1, host.find(']') - 1));
    return std::string(host.substr(0, host.find(':')));
}

std::optional<std::string> Url::query() const
{
    if (isFileUrl()) return std::nullopt;
    const auto query = partsOf(text_).query;
    return query ? std::optional<std::string>(*query) : std::nullopt;
}

std::vector<std::string> Url::pathComponents() const
{
    return Platform::pathComponents(path());
}

std::string Url::lastPathComponent() const
{
    const std::string whole = path();
    if (whole == "/") return whole;
    return whole.substr(whole.rfind('/') + 1);
}

std::string Url::pathExtension() const
{
    const std::string name = lastPathComponent();
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 == name.size()) return "";
    return name.substr(dot + 1);
}

Url Url::appendingPathComponent(std::string_view name, bool isDirectory) const
{
    if (!isFileUrl()) return *this;
    std::string joined = text_;
    if (!joined.ends_with('/')) joined += '/';
    joined += name.substr(std::min(name.find_first_not_of('/'), name.size()));
    return fromPath(joined, isDirectory || name.ends_with('/'));
}

Url Url::deletingLastPathComponent() const
{
    if (!isFileUrl()) return *this;
    const std::size_t slash = text_.rfind('/');
    if (slash == std::string::npos) return fromPath("", true);
    return fromPath(text_.substr(0, std::max<std::size_t>(slash, 1)), true);
}

Url Url::standardized() const
{
    if (!isFileUrl()) return *this;
    std::vector<std::string> kept;
    for (auto& component : Platform::pathComponents(text_)) {
        if (component == ".") continue;
        const bool canStepUp = !kept.empty() && kept.back() != ".." && kept.back() != "/";
        if (component == ".." && canStepUp) {
            kept.pop_back();
        } else if (component != ".." || kept.empty() || kept.back() != "/") {
            kept.push_back(std::move(component));
        }
    }
    return fromPath(pathWithComponents(kept), isDirectory_);
}

Url Url::resolvingSymlinksInPath() const
{
    if (!isFileUrl()) return *this;
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(text_.c_str(), nullptr), &std::free);
    return real ? fromPath(real.get(), isDirectory_) : *this;
}

std::vector<std::string> pathComponents(std::string_view path)
{
    std::vector<std::string> components;
    if (path.starts_with('/')) components.emplace_back("/");
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0) components.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

std::string pathWithComponents(const std::vector<std::string>& components)
{
    std::string path;
    for (const auto& component : components) {
        if (!path.empty() && path.back() != '/') path += '/';
        path += component;
    }
    return path;
}

std::string percentEncoded(std::string_view text, std::string_view allowedPunctuation)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size());
    for (const char c : text) {
        if (isAlpha(c) || isDigit(c) || allowedPunctuation.find(c) != std::string_view::npos) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += '%';
        encoded += digits[byte >> 4];
        encoded += digits[byte & 15];
    }
    return encoded;
}

std::optional<std::string> percentDecoded(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        if (i + 2 >= text.size()) return std::nullopt;
        const int high = hexValue(text[i + 1]);
        const int low = hexValue(text[i + 2]);
        if (high < 0 || low < 0) return std::nullopt;
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

}  // namespace Platform
