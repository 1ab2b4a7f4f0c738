#include "Lorrel/system/internal/SystemFacts.h"

#include <string_view>

#include "Lorrel/resource_bundle_accessor.h"
#include "Lorrel/system/IOKitHelper.h"
#include "Lorrel/system/MacSystem.h"
#include "Lorrel/system/internal/KernelReads.h"
#include "Lorrel/system/internal/Texts.h"
#include "platform/bundle/PropertyList.h"
#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Trim.h"
#include "platform/system/IORegistry.h"
#include "platform/system/Kernel.h"
#include "platform/system/ProcessInfo.h"
#include "platform/text/Locale.h"

namespace Lorrel {

namespace {

constexpr const char* placeholder = "-";
constexpr const char* letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

std::string productDescription()
{
    const auto product =
        Platform::IORegistry::shared().entryAtPath(MacSystem::mainPort(), "IOService:/AppleARMPE/product");
    const auto property = product ? product->property("product-description") : std::nullopt;
    const auto* block = property ? std::get_if<Platform::IOBytes>(&*property) : nullptr;
    return block && !block->content.empty() ? textOfBytes(block->content) : placeholder;
}

std::string systemFile(std::string_view path)
{
    return Platform::SystemRoots::shared().system() + std::string(path);
}

Platform::ImageRef wallpaper(std::string_view name)
{
    const std::string path = systemFile("/Library/Desktop Pictures/" + std::string(name));
    return Platform::IconService::shared().imageFromFile(Platform::Url::fromPath(path, false));
}

// The attributes of this model in the language's table of the system; null when there are none.
std::optional<Platform::PropertyList> machineAttributes(const std::string& language)
{
    const std::string path = systemFile("/Library/PrivateFrameworks/ServerInformation.framework/Versions/A/Resources/" +
                                        language + ".lproj/SIMachineAttributes.plist");
    const auto content = Platform::FileManager::shared().contents(path);
    if (!content) return std::nullopt;
    const auto list = Platform::PropertyList::parse(*content);
    const auto* entry = list ? list->find(MacSystem::model()) : nullptr;
    const auto* texts = entry ? entry->find("_LOCALIZABLE_") : nullptr;
    return texts ? std::optional(*texts) : std::nullopt;
}

bool holdsOnlyTexts(const Platform::PropertyList& list)
{
    const auto* dictionary = list.dictionary();
    if (!dictionary) return false;
    for (const auto& [key, value] : *dictionary) {
        if (!value.text()) return false;
    }
    return true;
}

}  // namespace

std::string findSerialNumber()
{
    const auto service = Platform::IORegistry::shared().serviceOfClass(MacSystem::mainPort(), "IOPlatformExpertDevice");
    const auto property = service ? service->property("IOPlatformSerialNumber") : std::nullopt;
    const auto* text = property ? std::get_if<std::string>(&*property) : nullptr;
    return text ? std::string(Platform::trimmed(*text)) : placeholder;
}

std::string findMarketingName()
{
    if (MacSystem::isAppleSilicon()) return productDescription();
    const auto details = MacSystem::hardwareDetails();
    return details ? details->marketingModel : placeholder;
}

std::string findComputerName()
{
    const auto name = Platform::ProcessInfo::shared().computerName();
    return name ? *name : Resources::text("UNKNOWN_COMPUTER_NAME");
}

std::string findProcessorName()
{
    return Platform::Kernel::shared().machine().starts_with("arm") ? "Apple Silicon" : "Intel";
}

std::optional<AppleHardwareDetails> findHardwareDetails()
{
    const std::string locale = Platform::currentLocaleName();
    const std::string language = locale.substr(0, locale.find_first_not_of(letters));
    if (language.empty()) return std::nullopt;
    const auto texts = machineAttributes(language);
    if (!texts || !holdsOnlyTexts(*texts)) return std::nullopt;
    const auto text = [&](std::string_view key) { return texts->textAt(key).value_or(placeholder); };
    return AppleHardwareDetails{text("processor"), text("description"), text("marketingModel"), text("model")};
}

int processorsCompatibleWith(std::string_view name)
{
    int count = 0;
    for (const auto& processor : Platform::IORegistry::shared().servicesNamed("cpu")) {
        const auto compatible = IOKitHelper::stringProperty(*processor, "compatible");
        if (compatible && lowerCased(*compatible).find(name) != std::string::npos) ++count;
    }
    return count;
}

SystemFacts::SystemFacts()
    : serialNumber(findSerialNumber),
      marketingName(findMarketingName),
      computerName(findComputerName),
      model([] { return kernelText("hw.model"); }),
      cpuBrand([] { return kernelText("machdep.cpu.brand_string"); }),
      hostName([] { return kernelText("kern.hostname"); }),
      threadCount([] { return kernelNumber("machdep.cpu.thread_count"); }),
      physicalCoreCount([] { return kernelNumber("hw.physicalcpu"); }),
      logicalCoreCount([] { return kernelNumber("hw.logicalcpu"); }),
      architecture([] { return Platform::Kernel::shared().machine(); }),
      processorName(findProcessorName),
      hardwareDetails(findHardwareDetails),
      bigSurWallpaper([] { return wallpaper("Big Sur Graphic.heic"); }),
      montereyWallpaper([] { return wallpaper("Monterey Graphic.heic"); }),
      venturaWallpaper([] { return wallpaper("Ventura Graphic.heic"); })
{
}

}  // namespace Lorrel
