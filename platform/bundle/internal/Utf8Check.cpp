#include "platform/bundle/internal/PropertyListGuard.h"
#include "platform/runtime/Utf8.h"

namespace Platform {

bool isPlainUtf8(std::string_view text)
{
    return text.find('\0') == std::string_view::npos && isUtf8(text);
}

}  // namespace Platform
