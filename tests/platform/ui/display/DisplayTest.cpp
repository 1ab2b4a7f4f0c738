// Dialogs on a real display, answered by pointer and keys from outside.
#include <QAbstractItemView>
#include <QScreen>

#include <gtest/gtest.h>

#include "platform/runtime/RunLoop.h"
#include "platform/ui/internal/QtOpenPanel.h"
#include "platform/ui/views/Window.h"
#include "tests/platform/ui/DialogDriver.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Display.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;
using Tests::button;

// The font library keeps a pattern to itself at the end of the process, the
// toolkit's accessibility a message of the bus library.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}

namespace {

class OnDisplay : public testing::Test {
protected:
    // Once a dialog is on the screen: takes its picture, then runs xdotool with
    // the arguments that the step makes of it.
    void whenShown(std::function<std::vector<std::string>(QDialog&)> step)
    {
        giveUp = Timer::scheduled(20, false, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
        });
        timer = Timer::scheduled(0.02, true, [this, step = std::move(step)] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isActiveWindow() || ++turns < 5) return;
            timer->invalidate();
            const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
            EXPECT_TRUE(QGuiApplication::primaryScreen()->grabWindow(0).save(
                QString::fromStdString(Tests::screenshotPath("dialogs/" + name))));
            std::vector<std::string> command{"xdotool"};
            for (const std::string& argument : step(*dialog)) command.push_back(argument);
            tool.emplace(command);
        });
    }

    // Without a window manager keys go to the window under the pointer.
    static std::vector<std::string> moveTo(const QWidget& widget, std::vector<std::string> then)
    {
        const QPoint place = widget.mapToGlobal(widget.rect().center());
        then.insert(then.begin(), {"mousemove", std::to_string(place.x()), std::to_string(place.y())});
        return then;
    }
    static std::vector<std::string> click(const QWidget& widget) { return moveTo(widget, {"click", "1"}); }
    static std::vector<std::string> type(const QWidget& widget, const std::string& text)
    {
        return moveTo(widget, {"type", "--args", "1", text, "key", "Return"});
    }
    Tests::Display display;
    std::shared_ptr<Timer> timer, giveUp;
    std::optional<Tests::ChildProcess> tool;
    int turns = 0;
};

TEST_F(OnDisplay, YesNoAlertIsAnsweredByThePointer)
{
    whenShown([](QDialog& dialog) { return click(button(dialog, 1)); });
    EXPECT_EQ(AlertPanel::shared().runModal({AlertStyle::warning, "Delete?", "For ever.", {"No", "Yes"}}).button,
              AlertAnswer::secondButton);
}

TEST_F(OnDisplay, SheetIsAnsweredByThePointer)
{
    const WindowRef window = Window::create({500, 300}, "Parent");
    window->show();
    std::vector<int> answers;
    whenShown([](QDialog& dialog) { return click(button(dialog, 0)); });
    AlertPanel::shared().beginSheet(window, {AlertStyle::informational, "Go on?", "", {"No", "Yes"}},
                                    [&](const AlertAnswer& answer) { answers.push_back(answer.button); });
    RunLoop::main().runUntil([&] { return !answers.empty(); }, std::chrono::seconds(20));
    EXPECT_EQ(answers, std::vector{1000});
}

TEST_F(OnDisplay, TextPromptIsAnsweredByKeysAlone)
{
    whenShown([](QDialog& dialog) { return type(dialog, "Ada"); });
    const AlertAnswer answer = AlertPanel::shared().runModal(
        {AlertStyle::warning, "Name", "", {"OK", "Cancel"}, AlertRequest::TextField{"old", {192, 21}}});
    EXPECT_EQ(answer.button, AlertAnswer::firstButton);
    EXPECT_EQ(answer.text, "Ada");
}

TEST_F(OnDisplay, FolderPanelChoosesAFolder)
{
    Tests::TemporaryDirectory folder;
    folder.makeFolder("inner");
    std::optional<OpenPanelAnswer> answer;
    whenShown([](QDialog& dialog) { return type(dialog, "inner"); });
    OpenPanelRequest request;
    request.directory = folder.url();
    request.prompt = "Allow";
    QtOpenPanel().beginSheet(nullptr, request, [&](const OpenPanelAnswer& given) { answer = given; });
    RunLoop::main().runUntil([&] { return answer.has_value(); }, std::chrono::seconds(20));
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->url, folder.url().appendingPathComponent("inner", true));
}

}  // namespace
