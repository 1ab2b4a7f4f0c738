#pragma once

#include <string>
#include <string_view>

namespace Platform {

// Text without control characters; line breaks become spaces in one line. Bytes
// that are not UTF-8 become replacement characters, since the bus carries no others.
std::string oneLine(std::string_view text);
// The same with line breaks kept.
std::string plainLines(std::string_view text);
// Text with what a server that takes markup would read as such escaped.
std::string escapedMarkup(std::string_view text);

}  // namespace Platform
