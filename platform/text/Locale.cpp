#include "platform/text/Locale.h"

#include <optional>

#include "platform/runtime/Environment.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

std::string chosenName()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string value = Environment::shared().variable(variable).value_or("");
        if (!value.empty()) return value.substr(0, value.find_first_of(".@"));
    }
    return "";
}

std::string localeName()
{
    const std::string name = chosenName();
    return name.empty() || name == "C" || name == "POSIX" ? "en_US_POSIX" : name;
}

struct Known {
    std::optional<unsigned> generation;
    std::string name;
};

}  // namespace

unsigned currentLocaleGeneration()
{
    return Shared<Environment>::generation();
}

const std::string& currentLocaleName()
{
    thread_local Known known;
    const unsigned generation = currentLocaleGeneration();
    if (known.generation != generation) known = {generation, localeName()};
    return known.name;
}

}  // namespace Platform
