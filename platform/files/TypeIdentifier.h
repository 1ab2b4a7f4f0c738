#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/Url.h"

namespace Platform {

// Names of kinds of content: the uniform one ("public.jpeg") where there is
// one, else the MIME type that the desktop's type database gives.

// By the name of the file, and whether it is a folder; absent when nothing
// stands there. Thread: any.
std::optional<std::string> typeIdentifier(const Url& file);

// For a name ending without its dot; absent when no type is known for it. Thread: any.
std::optional<std::string> typeIdentifierForExtension(std::string_view extension);

// Whether the type is the other one or a kind of it: "public.jpeg" is
// "public.image". Both may be uniform or MIME. Thread: any.
bool typeConforms(std::string_view type, std::string_view to);

// The MIME type of either kind of name; absent for a uniform one that has none.
std::optional<std::string> mimeTypeOf(std::string_view type);

}  // namespace Platform
