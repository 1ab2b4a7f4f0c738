#include <gtest/gtest.h>

#include "platform/runtime/Shared.h"
#include "platform/ui/internal/PortalAppearance.h"
#include "tests/support/BusService.h"
#include "tests/support/PrivateBus.h"

namespace {

using namespace Platform;
using Tests::eventually;

constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* group = "org.freedesktop.appearance";

// Answers with the scheme in a variant in a variant, and knows no accent colour.
class Portal {
public:
    explicit Portal(std::uint32_t scheme)
        : service_("org.freedesktop.portal.Desktop", path, [scheme](BusMessage call) {
              sd_bus_message* answer = nullptr;
              const bool isScheme = call.readText() == group && call.readText() == "color-scheme";
              if (isScheme) {
                  sd_bus_message_new_method_return(call.get(), &answer);
                  sd_bus_message_append(answer, "v", "v", "u", scheme);
              } else {
                  sd_bus_message_new_method_errorf(call.get(), &answer, SD_BUS_ERROR_FAILED, "not known");
              }
              return BusMessage(answer);
          })
    {
    }

    void tell(std::uint32_t scheme)
    {
        const BusMessage signal = service_.bus->newSignal(path, "org.freedesktop.portal.Settings", "SettingChanged");
        sd_bus_message_append(signal.get(), "ssv", group, "color-scheme", "u", scheme);
        service_.bus->send(signal);
    }

private:
    Tests::BusService service_;
};

TEST(PortalAppearance, FollowsThePortalAlsoWhenItOrTheBusComesLater)
{
    Tests::PrivateBus bus;
    const Shared<BusConnection>::Override fresh;
    bus.stop();
    PortalAppearance looks;
    int changes = 0;
    const Subscription observer = looks.observe([&] { ++changes; });
    const auto becomes = [&](const std::string& name) {
        return eventually([&] { return looks.appearance().name() == name; });
    };
    EXPECT_EQ(looks.appearance().name(), Appearance::aqua);
    bus.start();
    std::optional<Portal> portal(1);
    EXPECT_TRUE(becomes(Appearance::darkAqua));
    portal->tell(1);
    portal->tell(2);
    EXPECT_TRUE(becomes(Appearance::aqua));
    portal.reset();
    portal.emplace(1);
    EXPECT_TRUE(becomes(Appearance::darkAqua));
    EXPECT_EQ(changes, 3);
}

}  // namespace
