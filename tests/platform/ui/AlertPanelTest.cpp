#include <QAccessible>
#include <QFileDialog>
#include <QKeyEvent>

#include <gtest/gtest.h>

#include "platform/files/OpenPanel.h"
#include "platform/runtime/RunLoop.h"
#include "platform/ui/Desktop.h"
#include "platform/ui/internal/QtOpenPanel.h"
#include "platform/ui/views/Window.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/platform/ui/DialogDriver.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;
using namespace std::chrono_literals;
using Tests::button;
using Tests::DialogDriver;

namespace {

const AlertRequest question{AlertStyle::warning, "Delete?", "It cannot be undone.", {"NO", "&YES", "LATER"}};

void press(QWidget& widget, Qt::Key key)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

TEST(AlertPanel, AnswersWithTheNumberOfTheButtonInTheOrderAddedAndTheTextAsItIs)
{
    const struct {
        const char* way;
        DialogDriver::Step step;
        int button;
    } cases[] = {
        {"pointer on the first", [](QDialog& d) { button(d, 0).click(); }, 1000},
        {"pointer on the third", [](QDialog& d) { button(d, 2).click(); }, 1002},
        {"Space on the second", [](QDialog& d) { press(button(d, 1), Qt::Key_Space); }, 1001},
        {"Return", [](QDialog& d) { press(d, Qt::Key_Return); }, 1000},
        {"Return in the field", [](QDialog& d) { press(*d.findChild<QLineEdit*>(), Qt::Key_Return); }, 1000},
        {"Escape", [](QDialog& d) { press(d, Qt::Key_Escape); }, AlertAnswer::cancelled},
        {"closed", [](QDialog& d) { d.close(); }, AlertAnswer::cancelled},
    };
    AlertRequest request = question;
    request.textField = AlertRequest::TextField{"old", {192, 21}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.way);
        DialogDriver driver({[&](QDialog& dialog) {
            EXPECT_LT(button(dialog, 0).x(), button(dialog, 1).x());
            auto& field = *dialog.findChild<QLineEdit*>();
            EXPECT_EQ(field.size(), QSize(192, 21));
            EXPECT_EQ(field.text(), "old");
            field.setText("new");
            one.step(dialog);
        }});
        const AlertAnswer answer = AlertPanel::shared().runModal(request);
        EXPECT_EQ(answer.button, one.button);
        EXPECT_EQ(answer.text, "new");
    }
}

TEST(AlertPanel, ReadsRightToLeftAndIsAccessible)
{
    const AlertRequest arabic{AlertStyle::informational, "حذف؟", "لا رجوع", {"لا", "نعم"}};
    DialogDriver driver({[&](QDialog& dialog) {
        EXPECT_GT(button(dialog, 0).x(), button(dialog, 1).x());
        EXPECT_EQ(button(dialog, 1).accessibleName().toStdString(), "نعم");
        QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&dialog);
        EXPECT_EQ(box->text(QAccessible::Name).toStdString(), arabic.message);
        EXPECT_EQ(box->text(QAccessible::Description).toStdString(), arabic.information);
        button(dialog, 1).click();
    }});
    EXPECT_EQ(AlertPanel::shared().runModal(arabic).button, AlertAnswer::secondButton);
}

// An alert asked from inside a handler of another one: timers and posts go on in both.
TEST(AlertPanel, TheRunLoopGoesOnInsideNestedOnes)
{
    int ticks = 0;
    const auto timer = Timer::scheduled(0.001, true, [&] { ++ticks; });
    std::vector<int> answers;
    const auto ask = [&] { answers.push_back(AlertPanel::shared().runModal(question).button); };
    const auto waitForTicks = [&] {
        bool isPosted = false;
        RunLoop::main().post([&] { isPosted = true; });
        EXPECT_TRUE(RunLoop::main().runUntil([&, before = ticks] { return isPosted && ticks > before + 3; }, 10s));
    };
    DialogDriver driver({[&](QDialog& outer) {
                             waitForTicks();
                             ask();
                             button(outer, 0).click();
                         },
                         [&](QDialog& inner) {
                             waitForTicks();
                             button(inner, 1).click();
                         }});
    ask();
    EXPECT_EQ(answers, (std::vector{1001, 1000}));
    timer->invalidate();
}

TEST(Sheets, AnswerOnceWhenPressedOrWhenTheirWindowClosesOrEnds)
{
    WindowRef window;
    const struct {
        const char* way;
        DialogDriver::Step step;
        int answer;
    } cases[] = {
        {"pressed", [](QDialog& sheet) { button(sheet, 1).click(); }, 1001},
        {"closed", [&](QDialog&) { window->close(); }, AlertAnswer::cancelled},
        {"ended", [&](QDialog&) { window.reset(); }, AlertAnswer::cancelled},
        {"never shown", nullptr, AlertAnswer::cancelled},
    };
    for (const auto& [way, step, expected] : cases) {
        SCOPED_TRACE(way);
        window = Window::create({300, 200}, "Parent");
        if (step) window->show();
        DialogDriver driver({step});
        std::vector<int> answers;
        AlertPanel::shared().beginSheet(window, question, [&](const AlertAnswer& answer) {
            answers.push_back(answer.button);
            window.reset();
        });
        EXPECT_TRUE(answers.empty());
        if (!step) window.reset();
        EXPECT_TRUE(RunLoop::main().runUntil([&] { return !answers.empty(); }, 10s));
        RunLoop::main().drain();
        EXPECT_EQ(answers, std::vector{expected});
    }
}

TEST(Dialogs, AreCancelledWithALineInTheLogWhereNobodyCanAnswer)
{
    const Tests::ReplacedLog log;
    EXPECT_EQ(AlertPanel::shared().runModal(question).button, AlertAnswer::cancelled);
    std::vector<int> answers;
    AlertPanel::shared().beginSheet(nullptr, question, [&](const AlertAnswer& a) { answers.push_back(a.button); });
    QtOpenPanel().beginSheet(nullptr, {}, [&](const OpenPanelAnswer& a) { answers.push_back(a.response); });
    EXPECT_TRUE(answers.empty());
    RunLoop::main().drain();
    EXPECT_EQ(answers, (std::vector{0, 0}));
    EXPECT_EQ(log->count("counts as cancelled"), 3u);
}

TEST(OpenPanelSheet, ChoosesOneFolderFromWhereItStarts)
{
    Tests::TemporaryDirectory folder;
    folder.makeFolder("inner");
    OpenPanelRequest request;
    request.directory = folder.url();
    request.prompt = "Allow";
    DialogDriver driver({[](QDialog& dialog) {
        auto& panel = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(panel.fileMode(), QFileDialog::Directory);
        EXPECT_EQ(panel.labelText(QFileDialog::Accept), "Allow");
        panel.findChild<QLineEdit*>("fileNameEdit")->setText("inner");
        QMetaObject::invokeMethod(&panel, "accept");
    }});
    std::optional<OpenPanelAnswer> answer;
    QtOpenPanel().beginSheet(nullptr, request, [&](const OpenPanelAnswer& given) { answer = given; });
    ASSERT_TRUE(RunLoop::main().runUntil([&] { return answer.has_value(); }, 10s));
    EXPECT_EQ(answer->response, OpenPanelAnswer::ok);
    EXPECT_EQ(answer->url, folder.url().appendingPathComponent("inner", true));
    EXPECT_EQ(answer->directory, folder.url());
}

}  // namespace
