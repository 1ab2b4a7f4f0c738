#include "Lorrel/system/internal/Texts.h"

namespace Lorrel {

std::string lowerCased(std::string_view text)
{
    std::string lowered(text);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    }
    return lowered;
}

std::string replaced(std::string_view text, std::string_view part, std::string_view by)
{
    std::string result;
    for (std::size_t at; (at = text.find(part)) != std::string_view::npos; text.remove_prefix(at + part.size())) {
        result.append(text.substr(0, at)).append(by);
    }
    return result.append(text);
}

}  // namespace Lorrel
