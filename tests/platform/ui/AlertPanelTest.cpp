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
const AlertRequest prompt{AlertStyle::warning, "Name", "", {"OK", "CANCEL"}, AlertRequest::TextField{"old", {192, 21}}};

void press(QWidget& widget, Qt::Key key)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

TEST(AlertPanel, ButtonsAnswerWithTheirNumbersInTheOrderAddedAndTheTextAsItIs)
{
    for (int place = 0; place < 3; ++place) {
        DialogDriver driver({[place](QDialog& dialog) {
            EXPECT_EQ(dialog.findChildren<QPushButton*>().size(), 3);
            EXPECT_LT(button(dialog, 0).x(), button(dialog, 1).x());
            EXPECT_LT(button(dialog, 1).x(), button(dialog, 2).x());
            auto& field = *dialog.findChild<QLineEdit*>();
            EXPECT_EQ(field.size(), QSize(192, 21));
            EXPECT_EQ(field.text(), "old");
            field.setText("new");
            button(dialog, place).click();
        }});
        AlertRequest request = question;
        request.textField = prompt.textField;
        const AlertAnswer answer = AlertPanel::shared().runModal(request);
        EXPECT_EQ(answer.button, 1000 + place);
        EXPECT_EQ(answer.text, "new");
    }
}

TEST(AlertPanel, WorksByKeyboardAlone)
{
    const auto answers = [](const AlertRequest& request, const DialogDriver::Step& step) {
        DialogDriver driver({step});
        return AlertPanel::shared().runModal(request).button;
    };
    EXPECT_EQ(answers(question, [](QDialog& d) { press(d, Qt::Key_Return); }), AlertAnswer::firstButton);
    EXPECT_EQ(answers(question, [](QDialog& d) { press(button(d, 1), Qt::Key_Space); }), AlertAnswer::secondButton);
    EXPECT_EQ(answers(question, [](QDialog& d) { press(d, Qt::Key_Escape); }), AlertAnswer::cancelled);
    EXPECT_EQ(answers(question, [](QDialog& d) { d.close(); }), AlertAnswer::cancelled);
    EXPECT_EQ(answers(prompt, [](QDialog& d) { press(*d.findChild<QLineEdit*>(), Qt::Key_Return); }),
              AlertAnswer::firstButton);
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
    int ticks = 0, posts = 0;
    const auto timer = Timer::scheduled(0.001, true, [&] { ++ticks; });
    std::vector<int> answers;
    const auto waitForTicks = [&] {
        const int before = ticks;
        RunLoop::main().post([&] { ++posts; });
        EXPECT_TRUE(RunLoop::main().runUntil([&] { return ticks > before + 3 && posts > 0; }, 10s));
    };
    DialogDriver driver({[&](QDialog& outer) {
                             waitForTicks();
                             answers.push_back(AlertPanel::shared().runModal(question).button);
                             button(outer, 0).click();
                         },
                         [&](QDialog& inner) {
                             waitForTicks();
                             button(inner, 1).click();
                         }});
    answers.push_back(AlertPanel::shared().runModal(question).button);
    EXPECT_EQ(answers, (std::vector{1001, 1000}));
    EXPECT_EQ(posts, 2);
    timer->invalidate();
}

class Sheets : public testing::Test {
protected:
    void begin()
    {
        AlertPanel::shared().beginSheet(window, question, [this](const AlertAnswer& a) {
            answers.push_back(a.button);
            window.reset();
        });
        EXPECT_TRUE(answers.empty());
    }
    bool answered()
    {
        return RunLoop::main().runUntil([this] { return !answers.empty(); }, 10s);
    }
    void settle()
    {
        RunLoop::main().runUntil([] { return false; }, 20ms);
    }

    WindowRef window = Window::create({300, 200}, "Parent");
    std::vector<int> answers;
};

TEST_F(Sheets, AnswerOnceAndMayEndTheirWindowThen)
{
    window->show();
    DialogDriver driver({[&](QDialog& sheet) {
        EXPECT_EQ(sheet.windowModality(), Qt::WindowModal);
        button(sheet, 1).click();
    }});
    begin();
    EXPECT_TRUE(answered());
    settle();
    EXPECT_EQ(answers, std::vector{1001});
}

TEST_F(Sheets, AreCancelledOnceWhenTheirWindowClosesOrEnds)
{
    for (const bool ends : {false, true}) {
        answers.clear();
        window = Window::create({300, 200}, "Parent");
        window->show();
        DialogDriver driver({[&](QDialog&) { ends ? window.reset() : window->close(); }});
        begin();
        EXPECT_TRUE(answered());
        settle();
        EXPECT_EQ(answers, std::vector{0});
    }
    answers.clear();
    window = Window::create({300, 200}, "Never shown");
    DialogDriver driver({});
    begin();
    window.reset();
    EXPECT_TRUE(answered());
    EXPECT_EQ(answers, std::vector{0});
}

TEST(Dialogs, AreCancelledWithALineInTheLogWhereNobodyCanAnswer)
{
    const Tests::ReplacedLog log;
    EXPECT_EQ(AlertPanel::shared().runModal(prompt).button, AlertAnswer::cancelled);
    EXPECT_EQ(AlertPanel::shared().runModal(prompt).text, "old");
    std::vector<int> answers;
    AlertPanel::shared().beginSheet(nullptr, question, [&](const AlertAnswer& a) { answers.push_back(a.button); });
    QtOpenPanel().beginSheet(nullptr, {}, [&](const OpenPanelAnswer& a) { answers.push_back(a.response); });
    EXPECT_TRUE(answers.empty());
    RunLoop::main().drain();
    EXPECT_EQ(answers, (std::vector{0, 0}));
    EXPECT_EQ(log->count("counts as cancelled"), 4u);
}

TEST(OpenPanelSheet, ChoosesOneFolderFromWhereItStarts)
{
    Tests::TemporaryDirectory folder;
    folder.makeFolder("inner");
    folder.write("file.txt", "");
    OpenPanelRequest request;
    request.directory = folder.url();
    request.prompt = "Allow";
    std::optional<OpenPanelAnswer> answer;
    const auto run = [&](const DialogDriver::Step& step) {
        answer.reset();
        DialogDriver driver({step});
        QtOpenPanel().beginSheet(nullptr, request, [&](const OpenPanelAnswer& given) { answer = given; });
        EXPECT_TRUE(RunLoop::main().runUntil([&] { return answer.has_value(); }, 10s));
    };
    run([](QDialog& dialog) {
        auto& panel = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(panel.fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(panel.testOption(QFileDialog::ReadOnly));
        EXPECT_EQ(panel.labelText(QFileDialog::Accept), "Allow");
        panel.findChild<QLineEdit*>("fileNameEdit")->setText("inner");
        QMetaObject::invokeMethod(&panel, "accept");
    });
    EXPECT_EQ(answer->response, OpenPanelAnswer::ok);
    EXPECT_EQ(answer->url, folder.url().appendingPathComponent("inner", true));
    EXPECT_EQ(answer->directory, folder.url());
    request.directory = Url::fromPath(folder.makeFolder("caf\xe9"), true);
    run([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(answer->response, 0);
    EXPECT_FALSE(answer->url);
    EXPECT_EQ(answer->directory, folder.url());
}

}  // namespace
