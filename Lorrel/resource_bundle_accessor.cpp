#include "Lorrel/resource_bundle_accessor.h"

#include "Fennick/LocalizedText.h"
#include "platform/bundle/ResourceBundle.h"
#include "platform/runtime/FatalError.h"
#include "platform/runtime/Shared.h"

namespace Lorrel {

namespace {

std::unique_ptr<Resources::Found> find()
{
    auto bundle = Platform::findResourceBundle("Lorrel_Lorrel", BundleFinder::address());
    if (!bundle) Platform::fatalError("unable to find bundle named Lorrel_Lorrel", "Lorrel/resource_bundle_accessor");
    return std::make_unique<Resources::Found>(Resources::Found{std::move(bundle)});
}

}  // namespace

const void* BundleFinder::address()
{
    return reinterpret_cast<const void*>(&BundleFinder::address);
}

const Platform::Bundle& Resources::bundle()
{
    return *Platform::Shared<Found>::get(find).bundle;
}

std::string Resources::text(std::string_view key)
{
    return Fennick::localizedText(bundle(), key);
}

std::string Resources::text(std::string_view key, std::int64_t number)
{
    return Fennick::localizedText(bundle(), key, number);
}

std::string Resources::text(std::string_view key, std::string_view argument)
{
    return Fennick::localizedText(bundle(), key, argument);
}

}  // namespace Lorrel
