#include "Fennick/Support.h"

#include <string>

#include "Fennick/internal/SupportPage.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Url.h"
#include "platform/session/Workspace.h"

namespace Fennick {

namespace internal {

void openPage(std::string_view address, std::string_view page)
{
    if (address.empty()) {
        Platform::log("Support: this build has no address for the " + std::string(page) + " page");
        return;
    }
    const auto url = Platform::Url::parse(address);
    if (!url) return;
    const auto opened = Platform::Workspace::shared().openURL(*url);
    if (!opened) Platform::log("Support: " + opened.error().message());
}

}  // namespace internal

void Support::openContactPage()
{
    internal::openPage(PELLORA_CONTACT_PAGE, "contact");
}

void Support::openFAQPage()
{
    internal::openPage(PELLORA_FAQ_PAGE, "FAQ");
}

}  // namespace Fennick
