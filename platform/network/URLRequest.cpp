#include "platform/network/URLRequest.h"

#include "platform/network/internal/HeaderText.h"

namespace Platform {

void URLRequest::setValue(std::string_view name, std::string_view value)
{
    std::erase_if(headers_, [&](const auto& field) { return isSameHeader(field.first, name); });
    addValue(name, value);
}

void URLRequest::addValue(std::string_view name, std::string_view value)
{
    headers_.emplace_back(name, value);
}

}  // namespace Platform
