#include "platform/files/TypeIdentifier.h"

#include <algorithm>
#include <memory>

#include <gio/gio.h>

#include "platform/bundle/Bundle.h"
#include "platform/files/FileManager.h"
#include "platform/files/internal/UniformTypes.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/SystemLibrary.h"

namespace Platform {

namespace {

// Loaded with the first question about a type, as it starts an object system of its own.
struct GioLibrary {
    SystemLibrary library{"libgio-2.0.so.0"};
    decltype(&g_content_type_guess) guess = library.find("g_content_type_guess");
    decltype(&g_content_type_equals) equals = library.find("g_content_type_equals");
    decltype(&g_content_type_is_a) isA = library.find("g_content_type_is_a");
    decltype(&g_free) free = library.find("g_free");
};

// Where it is missing, no name tells a type and every type is a kind of itself only, which is said once.
const GioLibrary& gio()
{
    return loadedOnce<GioLibrary>([](const GioLibrary& gio) {
        if (!gio.library.isUsable()) log("Types of files are not known: " + gio.library.failure());
    });
}

constexpr std::string_view unknownType = "application/octet-stream";

std::string mimeTypeOfName(const std::string& name)
{
    if (!gio().library.isUsable()) return std::string(unknownType);
    const std::unique_ptr<char, decltype(&g_free)> type(gio().guess(name.c_str(), nullptr, 0, nullptr), gio().free);
    return type ? type.get() : std::string(unknownType);
}

bool isEqual(const std::string& type, const std::string& other)
{
    return gio().library.isUsable() ? gio().equals(type.c_str(), other.c_str()) : type == other;
}

std::string identifierOf(const std::string& mimeType)
{
    return std::string(uniformNameOf(mimeType).value_or(mimeType));
}

bool isA(const std::string& type, std::string_view kind)
{
    // A family is told by the first half alone.
    if (kind.ends_with("/*")) return type.starts_with(kind.substr(0, kind.size() - 1));
    return isEqual(type, std::string(kind));
}

}  // namespace

std::optional<std::string> typeIdentifier(const Url& file)
{
    switch (FileManager::shared().kind(file.path())) {
        case PathKind::none:
            return std::nullopt;
        case PathKind::directory:
            return isPackage(file.lastPathComponent()) ? "com.apple.package" : "public.folder";
        case PathKind::file:
            break;
    }
    return identifierOf(mimeTypeOfName(file.lastPathComponent()));
}

std::optional<std::string> typeIdentifierForExtension(std::string_view extension)
{
    if (extension.empty()) return std::nullopt;
    const std::string type = mimeTypeOfName("x." + std::string(extension));
    return type == unknownType ? std::nullopt : std::optional(identifierOf(type));
}

std::optional<std::string> mimeTypeOf(std::string_view type)
{
    if (const auto mime = mimeNameOf(type)) return std::string(*mime);
    return type.find('/') == std::string_view::npos ? std::nullopt : std::optional(std::string(type));
}

bool typeConforms(std::string_view type, std::string_view to)
{
    if (type == to) return true;
    const auto mime = mimeTypeOf(type);
    if (!mime) return false;
    const auto kinds = kindsOf(to);
    if (!kinds.empty()) return std::ranges::any_of(kinds, [&](std::string_view kind) { return isA(*mime, kind); });
    const auto wanted = mimeTypeOf(to);
    if (!wanted || !gio().library.isUsable()) return wanted == mime;
    return gio().isA(mime->c_str(), wanted->c_str());
}

}  // namespace Platform
