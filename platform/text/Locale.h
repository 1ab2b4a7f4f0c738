#pragma once

#include <string>

namespace Platform {

// The name of the user's locale ("de_DE"), from the first of LC_ALL,
// LC_MESSAGES and LANG that is set and not empty; its encoding and modifier are
// dropped. "en_US_POSIX" for "C", "POSIX" and where none is set.
// Read once, and again when the environment is replaced. Thread: any.
const std::string& currentLocaleName();

// Changes whenever currentLocaleName() may answer differently, so that what was
// made for a locale can be kept until then. Thread: any.
unsigned currentLocaleGeneration();

}  // namespace Platform
