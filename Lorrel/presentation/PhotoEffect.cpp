#include "Lorrel/presentation/PhotoEffect.h"

#include <algorithm>
#include <array>

#include "platform/ui/PhotoFilter.h"

namespace Lorrel {
namespace {

// In the order of the cases.
constexpr std::array<std::string_view, 3> rawValues{"CIPhotoEffectMono", "CIPhotoEffectTonal", "CIPhotoEffectNoir"};

}  // namespace

std::string_view rawValue(PhotoEffect effect)
{
    return rawValues.at(static_cast<std::size_t>(effect));
}

std::optional<PhotoEffect> photoEffect(std::string_view rawValue)
{
    const auto* found = std::ranges::find(rawValues, rawValue);
    if (found == rawValues.end()) return std::nullopt;
    return static_cast<PhotoEffect>(found - rawValues.begin());
}

Platform::ImageRef applying(const Platform::ImageRef& image, PhotoEffect effect)
{
    const auto bitmap = image ? image->bitmap() : std::nullopt;
    auto filtered = bitmap ? Platform::applyPhotoFilter(*bitmap, rawValue(effect)) : std::nullopt;
    if (!filtered) return nullptr;
    return std::make_shared<Platform::Image>(std::move(*filtered), image->size());
}

}  // namespace Lorrel
