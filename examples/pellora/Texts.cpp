#include "examples/pellora/Texts.h"

#include "Fennick/LocalizedText.h"
#include "platform/bundle/Bundle.h"

namespace Pellora {

std::string text(std::string_view key)
{
    return Fennick::localizedText(Platform::Bundle::main(), key);
}

std::string text(std::string_view key, std::string_view argument)
{
    return Fennick::localizedText(Platform::Bundle::main(), key, argument);
}

}  // namespace Pellora
