#include "platform/files/internal/UniformTypes.h"

#include <algorithm>
#include <array>

namespace Platform {

namespace {

// The public uniform types with the names that the shared MIME database uses.
constexpr UniformType types[] = {
    {"com.adobe.encapsulated-postscript", "image/x-eps"},
    {"com.adobe.pdf", "application/pdf"},
    {"com.adobe.photoshop-image", "image/vnd.adobe.photoshop"},
    {"com.adobe.postscript", "application/postscript"},
    {"com.apple.disk-image-udif", "application/x-apple-diskimage"},
    {"com.apple.icns", "image/x-icns"},
    {"com.apple.m4a-audio", "audio/mp4"},
    {"com.apple.quicktime-movie", "video/quicktime"},
    {"com.compuserve.gif", "image/gif"},
    {"com.microsoft.bmp", "image/bmp"},
    {"com.microsoft.ico", "image/vnd.microsoft.icon"},
    {"com.microsoft.waveform-audio", "audio/x-wav"},
    {"com.microsoft.windows-executable", "application/x-ms-dos-executable"},
    {"com.microsoft.word.doc", "application/msword"},
    {"com.sun.java-archive", "application/x-java-archive"},
    {"org.7-zip.7-zip-archive", "application/x-7z-compressed"},
    {"org.gnu.gnu-zip-archive", "application/gzip"},
    {"org.gnu.gnu-zip-tar-archive", "application/x-compressed-tar"},
    {"org.matroska.mkv", "video/x-matroska"},
    {"org.openxmlformats.wordprocessingml.document",
     "application/vnd.openxmlformats-officedocument.wordprocessingml.document"},
    {"org.tukaani.xz-archive", "application/x-xz"},
    {"org.webmproject.webm", "video/webm"},
    {"org.webmproject.webp", "image/webp"},
    {"org.xiph.flac", "audio/flac"},
    {"public.avi", "video/x-msvideo"},
    {"public.bzip2-archive", "application/x-bzip"},
    {"public.c-header", "text/x-chdr"},
    {"public.c-plus-plus-source", "text/x-c++src"},
    {"public.c-source", "text/x-csrc"},
    {"public.comma-separated-values-text", "text/csv"},
    {"public.data", "application/octet-stream"},
    {"public.folder", "inode/directory"},
    {"public.heic", "image/heif"},
    {"public.html", "text/html"},
    {"public.iso-image", "application/x-cd-image"},
    {"public.jpeg", "image/jpeg"},
    {"public.json", "application/json"},
    {"public.mp3", "audio/mpeg"},
    {"public.mpeg", "video/mpeg"},
    {"public.mpeg-4", "video/mp4"},
    {"public.plain-text", "text/plain"},
    {"public.png", "image/png"},
    {"public.python-script", "text/x-python"},
    {"public.rtf", "application/rtf"},
    {"public.shell-script", "application/x-shellscript"},
    {"public.svg-image", "image/svg+xml"},
    {"public.tar-archive", "application/x-tar"},
    {"public.tiff", "image/tiff"},
    {"public.vcard", "text/vcard"},
    {"public.xml", "application/xml"},
    {"public.zip-archive", "application/zip"},
};

constexpr std::string_view images[] = {"image/*"};
constexpr std::string_view movies[] = {"video/*", "application/mxf", "application/vnd.rn-realmedia",
                                       "application/vnd.ms-asf"};
constexpr std::string_view sounds[] = {"audio/*"};
constexpr std::string_view texts[] = {"text/*"};
// By name: many documents are packed as ZIP, and are no archives for it.
constexpr std::string_view archives[] = {
    "application/gzip",
    "application/vnd.debian.binary-package",
    "application/vnd.ms-cab-compressed",
    "application/vnd.rar",
    "application/x-7z-compressed",
    "application/x-ace",
    "application/x-apple-diskimage",
    "application/x-archive",
    "application/x-arj",
    "application/x-bzip",
    "application/x-bzip-compressed-tar",
    "application/x-cd-image",
    "application/x-compress",
    "application/x-compressed-tar",
    "application/x-cpio",
    "application/x-cpio-compressed",
    "application/x-java-archive",
    "application/x-lha",
    "application/x-lrzip",
    "application/x-lz4",
    "application/x-lz4-compressed-tar",
    "application/x-lzip",
    "application/x-lzip-compressed-tar",
    "application/x-lzma",
    "application/x-lzma-compressed-tar",
    "application/x-lzop",
    "application/x-rpm",
    "application/x-source-rpm",
    "application/x-stuffit",
    "application/x-tar",
    "application/x-tarz",
    "application/x-tzo",
    "application/x-xar",
    "application/x-xz",
    "application/x-xz-compressed-tar",
    "application/x-zoo",
    "application/x-zstd-compressed-tar",
    "application/zip",
    "application/zlib",
    "application/zstd",
};

struct Family {
    std::string_view identifier;
    std::span<const std::string_view> kinds;
};

constexpr Family families[] = {
    {"public.image", images}, {"public.movie", movies},     {"public.audio", sounds},
    {"public.text", texts},   {"public.archive", archives},
};

}  // namespace

std::optional<std::string_view> uniformNameOf(std::string_view mimeType)
{
    const auto* found = std::ranges::find(types, mimeType, &UniformType::mimeType);
    return found == std::end(types) ? std::nullopt : std::optional(found->identifier);
}

std::optional<std::string_view> mimeNameOf(std::string_view identifier)
{
    const auto* found = std::ranges::lower_bound(types, identifier, {}, &UniformType::identifier);
    return found == std::end(types) || found->identifier != identifier ? std::nullopt : std::optional(found->mimeType);
}

std::span<const std::string_view> kindsOf(std::string_view identifier)
{
    const auto* found = std::ranges::find(families, identifier, &Family::identifier);
    return found == std::end(families) ? std::span<const std::string_view>() : found->kinds;
}

}  // namespace Platform
