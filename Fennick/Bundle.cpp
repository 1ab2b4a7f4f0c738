#include "Fennick/Bundle.h"

namespace Fennick {

namespace {

std::string infoText(const Platform::Bundle& bundle, std::string_view key, std::string_view fallback)
{
    const auto value = bundle.objectForInfoDictionaryKey(key);
    return std::string(value && value->text() ? *value->text() : fallback);
}

}  // namespace

std::string shortVersion(const Platform::Bundle& bundle)
{
    return infoText(bundle, "CFBundleShortVersionString", "Unknown Version");
}

std::string bundleName(const Platform::Bundle& bundle)
{
    return infoText(bundle, "CFBundleName", "Unknown App");
}

}  // namespace Fennick
