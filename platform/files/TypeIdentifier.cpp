#include "platform/files/TypeIdentifier.h"

#include <algorithm>
#include <memory>

#include <gio/gio.h>

#include "platform/bundle/Bundle.h"
#include "platform/files/FileManager.h"
#include "platform/files/internal/UniformTypes.h"

namespace Platform {

namespace {

struct GFree {
    void operator()(char* text) const { g_free(text); }
};
using GText = std::unique_ptr<char, GFree>;

constexpr std::string_view unknownType = "application/octet-stream";

std::string mimeTypeOfName(const std::string& name)
{
    const GText type(g_content_type_guess(name.c_str(), nullptr, 0, nullptr));
    return type ? type.get() : std::string(unknownType);
}

std::string identifierOf(const std::string& mimeType)
{
    return std::string(uniformNameOf(mimeType).value_or(mimeType));
}

bool isA(const std::string& type, std::string_view kind)
{
    // A family is told by the first half alone.
    if (kind.ends_with("/*")) return type.starts_with(kind.substr(0, kind.size() - 1));
    return g_content_type_equals(type.c_str(), std::string(kind).c_str());
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
    return wanted && g_content_type_is_a(mime->c_str(), wanted->c_str());
}

}  // namespace Platform
