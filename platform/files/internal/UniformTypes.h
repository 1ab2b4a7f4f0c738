#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace Platform {

// One row for a concrete type: its uniform and its MIME name.
struct UniformType {
    std::string_view identifier;
    std::string_view mimeType;
};

std::optional<std::string_view> uniformNameOf(std::string_view mimeType);
std::optional<std::string_view> mimeNameOf(std::string_view identifier);

// The MIME types that an abstract uniform type ("public.archive") stands for;
// "video/*" for a whole family. Empty for a concrete one.
std::span<const std::string_view> kindsOf(std::string_view identifier);

}  // namespace Platform
