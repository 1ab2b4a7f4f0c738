#pragma once

#include <string>
#include <string_view>

namespace Pellora {

// Pellora's texts in the user's language, from the table in its bundle, by key;
// the key itself where the table has none. The second form fills a "%@".
// Thread: any.
std::string text(std::string_view key);
std::string text(std::string_view key, std::string_view argument);

}  // namespace Pellora
