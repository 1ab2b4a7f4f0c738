#pragma once

#include <string_view>

namespace Platform {

// Header names compare without regard to case.
bool isSameHeader(std::string_view a, std::string_view b);
// A name or a method (RFC 9110, section 5.6.2).
bool isHttpToken(std::string_view text);
// Nothing that would end the line or the text.
bool isHeaderValue(std::string_view text);
// Without the white space around it.
std::string_view withoutOuterSpace(std::string_view text);

}  // namespace Platform
