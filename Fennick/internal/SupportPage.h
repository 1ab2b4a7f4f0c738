#pragma once

#include <string_view>

namespace Fennick::internal {

// Opens an address; nothing where it is no URL. Without address the log names the page.
void openPage(std::string_view address, std::string_view page);

}  // namespace Fennick::internal
