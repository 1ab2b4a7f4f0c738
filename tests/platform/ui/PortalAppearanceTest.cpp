#include <gtest/gtest.h>

#include "platform/runtime/Shared.h"
#include "platform/ui/internal/PortalAppearance.h"
#include "platform/ui/views/View.h"
#include "tests/support/BusService.h"
#include "tests/support/PrivateBus.h"

namespace {

using namespace Platform;
using Tests::eventually;

constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* group = "org.freedesktop.appearance";

TEST(PortalAppearance, IsInheritedByViewsAndFollowsThePortalAlsoWhenItOrTheBusComesLater)
{
    Tests::PrivateBus bus;
    const Shared<BusConnection>::Override fresh;
    bus.stop();
    const Shared<DesktopAppearance>::Override desktop(std::make_shared<PortalAppearance>());
    const auto root = std::make_shared<View>(), leaf = std::make_shared<View>();
    root->addSubview(leaf);
    int changes = 0;
    Subscription observer = leaf->observeEffectiveAppearance([&] { ++changes; });
    const auto becomes = [&](const std::string& name) {
        return eventually([&] { return leaf->effectiveAppearance().name() == name; });
    };
    std::optional<Tests::BusService> portal;
    // It answers with the scheme in a variant in a variant, and knows no accent colour.
    const auto startPortal = [&](std::uint32_t scheme) {
        portal.emplace("org.freedesktop.portal.Desktop", path, [scheme](BusMessage call) {
            sd_bus_message* answer = nullptr;
            if (call.readText() == group && call.readText() == "color-scheme") {
                sd_bus_message_new_method_return(call.get(), &answer);
                sd_bus_message_append(answer, "v", "v", "u", scheme);
            } else {
                sd_bus_message_new_method_errorf(call.get(), &answer, SD_BUS_ERROR_FAILED, "not known");
            }
            return BusMessage(answer);
        });
    };
    const auto tell = [&](std::uint32_t scheme) {
        const BusMessage signal = portal->bus->newSignal(path, "org.freedesktop.portal.Settings", "SettingChanged");
        sd_bus_message_append(signal.get(), "ssv", group, "color-scheme", "u", scheme);
        portal->bus->send(signal);
    };

    EXPECT_TRUE(becomes(Appearance::aqua));
    bus.start();
    startPortal(1);
    EXPECT_TRUE(becomes(Appearance::darkAqua));
    tell(1);
    tell(2);
    EXPECT_TRUE(becomes(Appearance::aqua));
    startPortal(1);
    EXPECT_TRUE(becomes(Appearance::darkAqua));
    EXPECT_EQ(changes, 3);

    root->setAppearance(Appearance(Appearance::highContrastDarkAqua));
    EXPECT_EQ(leaf->effectiveAppearance().name(), Appearance::highContrastDarkAqua);
    EXPECT_EQ(changes, 4);
    observer.cancel();
    observer.cancel();
    root->setAppearance({});
    EXPECT_EQ(changes, 4);
}

}  // namespace
