// A dialog on a real display, answered by pointer and keys from outside.
#include <gtest/gtest.h>

#include "tests/platform/ui/DialogDriver.h"
#include "tests/support/DesktopLeaks.h"
#include "tests/support/Display.h"
#include "tests/support/Eventually.h"

using namespace Platform;

namespace {

TEST(DialogsOnDisplay, TextPromptIsAnsweredByKeysAlone)
{
    const Tests::Display display;
    std::optional<Tests::ChildProcess> keys;
    std::shared_ptr<Timer> giveUp;
    Tests::DialogDriver driver({[&](QDialog& dialog) {
        giveUp = Timer::scheduled(20, false, [&dialog] { dialog.reject(); });
        EXPECT_TRUE(Tests::eventually([&] { return dialog.isActiveWindow(); }));
        // Without a window manager keys go to the window under the pointer.
        const QPoint middle = dialog.mapToGlobal(dialog.rect().center());
        keys.emplace(std::vector<std::string>{"xdotool", "mousemove", std::to_string(middle.x()),
                                              std::to_string(middle.y()), "type", "--args", "1", "Ada", "key",
                                              "Return"});
    }});
    const AlertAnswer answer = AlertPanel::shared().runModal(
        {AlertStyle::warning, "Name", "", {"OK", "Cancel"}, AlertRequest::TextField{"old", {192, 21}}});
    giveUp->invalidate();
    EXPECT_EQ(answer.button, AlertAnswer::firstButton);
    EXPECT_EQ(answer.text, "Ada");
}

}  // namespace
