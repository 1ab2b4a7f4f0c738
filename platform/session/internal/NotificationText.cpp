#include "platform/session/internal/NotificationText.h"

#include <algorithm>

#include "platform/runtime/Utf8.h"

namespace Platform {

namespace {

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

}  // namespace

std::string plainLines(std::string_view text)
{
    std::string plain = repairedUtf8(text);
    std::erase_if(plain, [](char c) { return isControl(c) && c != '\n' && c != '\t'; });
    return plain;
}

std::string oneLine(std::string_view text)
{
    std::string plain = plainLines(text);
    std::replace_if(plain.begin(), plain.end(), isControl, ' ');
    return plain;
}

std::string escapedMarkup(std::string_view text)
{
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

}  // namespace Platform
