// A tray host in a process of its own. It writes the tool tip of the latest
// item each time that anything has changed.
#include <cstdio>

#include "tests/support/TrayHost.h"

int main()
{
    Tests::TrayHost host;
    host.waitForItem();
    for (;;) {
        host.signals.clear();
        const auto tip = host.property("ToolTip", "(sa(iiay)ss)");
        const char *icon = "", *text = "";
        if (tip && sd_bus_message_enter_container(tip.get(), 'r', "sa(iiay)ss") > 0) {
            sd_bus_message_read(tip.get(), "s", &icon);
            sd_bus_message_skip(tip.get(), "a(iiay)");
            sd_bus_message_read(tip.get(), "s", &text);
        }
        std::puts(text);
        std::fflush(stdout);
        Platform::RunLoop::main().runUntil([&] { return !host.signals.empty(); }, std::chrono::hours(1));
    }
}
