// Dialogs on a real display, answered by pointer and keys from outside.
#include <gtest/gtest.h>

#include "platform/runtime/RunLoop.h"
#include "platform/ui/views/Window.h"
#include "tests/platform/ui/DialogDriver.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Display.h"

using namespace Platform;
using Tests::button;

// The font library keeps a pattern to itself at the end of the process, the
// toolkit's accessibility a message of the bus library.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}

namespace {

class DialogsOnDisplay : public testing::Test {
protected:
    // Once a dialog is on the screen: moves the pointer to the widget that is
    // found in it (keys go to the window there without a window manager), then
    // does what xdotool is told to.
    void whenShown(std::function<QWidget&(QDialog&)> find, std::vector<std::string> then)
    {
        giveUp = Timer::scheduled(20, false, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
        });
        timer = Timer::scheduled(0.02, true, [this, find = std::move(find), then = std::move(then)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isActiveWindow() || ++turns < 5) return;
            timer->invalidate();
            QWidget& widget = find(*dialog);
            const QPoint place = widget.mapToGlobal(widget.rect().center());
            std::vector<std::string> command{"xdotool", "mousemove", std::to_string(place.x()),
                                             std::to_string(place.y())};
            command.insert(command.end(), then.begin(), then.end());
            tool.emplace(command);
        });
    }

    Tests::Display display;
    std::shared_ptr<Timer> timer, giveUp;
    std::optional<Tests::ChildProcess> tool;
    int turns = 0;
};

TEST_F(DialogsOnDisplay, SheetIsAnsweredByThePointer)
{
    const WindowRef window = Window::create({500, 300}, "Parent");
    window->show();
    std::vector<int> answers;
    whenShown([](QDialog& dialog) -> QWidget& { return button(dialog, 0); }, {"click", "1"});
    AlertPanel::shared().beginSheet(window, {AlertStyle::informational, "Go on?", "", {"No", "Yes"}},
                                    [&](const AlertAnswer& answer) { answers.push_back(answer.button); });
    RunLoop::main().runUntil([&] { return !answers.empty(); }, std::chrono::seconds(20));
    EXPECT_EQ(answers, std::vector{1000});
}

TEST_F(DialogsOnDisplay, TextPromptIsAnsweredByKeysAlone)
{
    whenShown([](QDialog& dialog) -> QWidget& { return dialog; }, {"type", "--args", "1", "Ada", "key", "Return"});
    const AlertAnswer answer = AlertPanel::shared().runModal(
        {AlertStyle::warning, "Name", "", {"OK", "Cancel"}, AlertRequest::TextField{"old", {192, 21}}});
    EXPECT_EQ(answer.button, AlertAnswer::firstButton);
    EXPECT_EQ(answer.text, "Ada");
}

}  // namespace
