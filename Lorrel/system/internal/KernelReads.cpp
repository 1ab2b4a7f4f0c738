#include "Lorrel/system/internal/KernelReads.h"

#include "platform/runtime/Utf8.h"
#include "platform/system/Kernel.h"

namespace Lorrel {

std::string kernelText(std::string_view name)
{
    return textOfBytes(Platform::Kernel::shared().variable(name).value_or(""));
}

std::uint8_t kernelNumber(std::string_view name)
{
    const auto bytes = Platform::Kernel::shared().variable(name).value_or("");
    return bytes.empty() ? 0 : static_cast<std::uint8_t>(bytes.front());
}

std::string textOfBytes(std::string_view bytes)
{
    return Platform::repairedUtf8(bytes.substr(0, bytes.find('\0')));
}

}  // namespace Lorrel
