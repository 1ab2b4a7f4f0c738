#pragma once

#include <string>
#include <vector>

namespace Platform {

// The names of the user's language as folders bear them, the most special
// first ("pt-BR", "pt_BR", "pt"): from the first of LC_ALL, LC_MESSAGES and
// LANG that is set and not empty. Empty for the C locale.
std::vector<std::string> userLanguages();

}  // namespace Platform
