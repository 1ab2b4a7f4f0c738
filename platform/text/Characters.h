#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Platform {

// Texts by what a reader takes for one character: grapheme clusters and full
// case mappings, the same in every locale. Broken UTF-8 counts as U+FFFD.
// Thread: any.

// "straße" becomes "STRASSE".
std::string uppercased(std::string_view text);

// A letter with its combining marks is one.
std::size_t characterCount(std::string_view text);

}  // namespace Platform
