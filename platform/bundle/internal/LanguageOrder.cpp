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

// Chinese is kept by its script, which locale names leave to the region.
std::vector<std::string> scriptsOf(const std::string& language, const std::string& region)
{
    if (language != "zh") return {};
    const bool isTraditional = region == "TW" || region == "HK" || region == "MO";
    return {isTraditional ? "zh-Hant" : "zh-Hans"};
}

}  // namespace

std::vector<std::string> userLanguages()
{
    const std::string name = localeName();
    const bool isPlain = name.find_first_of("/") == std::string::npos;
    if (name.empty() || name == "C" || name == "POSIX" || !isPlain) return {};
    const std::size_t separator = name.find_first_of("_-");
    const std::string language = name.substr(0, separator);
    const std::string region = separator == std::string::npos ? "" : name.substr(separator + 1);
    std::vector<std::string> languages = scriptsOf(language, region);
    languages.push_back(language);
    if (region.empty()) return languages;
    languages.insert(languages.begin(), {language + "-" + region, language + "_" + region});
    return languages;
}

}  // namespace Platform
