#include "platform/network/URLResponse.h"

#include "platform/network/internal/HeaderText.h"

namespace Platform {

std::optional<std::string> HTTPURLResponse::value(std::string_view name) const
{
    for (const auto& [known, value] : headers_) {
        if (isSameHeader(known, name)) return value;
    }
    return std::nullopt;
}

}  // namespace Platform
