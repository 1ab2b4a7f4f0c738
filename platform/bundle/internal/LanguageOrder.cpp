#include "platform/bundle/internal/LanguageOrder.h"

#include "platform/runtime/Environment.h"

namespace Platform {

namespace {

// "pt_BR.UTF-8@euro" is "pt_BR".
std::string localeName()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string value = Environment::shared().variable(name).value_or("");
        if (!value.empty()) return value.substr(0, value.find_first_of(".@"));
    }
    return "";
}

}  // namespace

std::vector<std::string> userLanguages()
{
    const std::string name = localeName();
    const bool isPlain = name.find_first_of("/") == std::string::npos;
    if (name.empty() || name == "C" || name == "POSIX" || !isPlain) return {};
    const std::size_t separator = name.find_first_of("_-");
    if (separator == std::string::npos) return {name};
    const std::string language = name.substr(0, separator);
    const std::string region = name.substr(separator + 1);
    return {language + "-" + region, language + "_" + region, language};
}

}  // namespace Platform
