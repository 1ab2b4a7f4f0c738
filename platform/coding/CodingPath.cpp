#include "platform/coding/CodingPath.h"

namespace Platform {

std::string pathText(const CodingPath& path)
{
    std::string text;
    for (const auto& key : path) {
        if (key.index) {
            text += '[' + std::to_string(*key.index) + ']';
            continue;
        }
        if (!text.empty()) text += '.';
        text += key.text;
    }
    return text;
}

}  // namespace Platform
