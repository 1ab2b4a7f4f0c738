#include <gtest/gtest.h>

#include "Lorrel/presentation/Alert.h"
#include "Lorrel/resource_bundle_accessor.h"
#include "tests/fakes/FakeAlertPanel.h"
#include "tests/fakes/FakeEnvironment.h"

using namespace Platform;
using Lorrel::Alert;

namespace {

using Titles = std::vector<std::string>;

TEST(Alert, OnlyTheSecondButtonIsYes)
{
    for (const int answer : {AlertAnswer::cancelled, 1000, 1001, 1002}) {
        const Tests::ReplacedAlertPanel panel(AlertAnswer{answer, ""});
        EXPECT_EQ(Alert::confirm("Delete?", "For ever."), answer == 1001) << answer;
        EXPECT_EQ(panel->requests[0].style, AlertStyle::warning);
        EXPECT_EQ(panel->requests[0].message + panel->requests[0].information, "Delete?For ever.");

        std::vector<bool> answers;
        Alert::confirm(nullptr, "Delete?", "", [&](bool yes) { answers.push_back(yes); });
        EXPECT_TRUE(answers.empty());
        EXPECT_EQ(panel->requests[1].style, AlertStyle::informational);
        panel->sheets[0](AlertAnswer{answer, ""});
        EXPECT_EQ(answers, std::vector<bool>{answer == 1001});
    }
}

TEST(Alert, TextIsHandedOverWhateverWasPressed)
{
    for (const int answer : {AlertAnswer::cancelled, 1000, 1001}) {
        const Tests::ReplacedAlertPanel panel(AlertAnswer{answer, "typed"});
        std::optional<std::pair<std::string, bool>> result;
        Alert::askForText("Name", "", "before",
                          [&](const std::string& text, bool isConfirmed) { result.emplace(text, isConfirmed); });
        EXPECT_EQ(result, std::pair(std::string("typed"), answer == 1000));
        EXPECT_EQ(panel->requests[0].textField->text, "before");
        EXPECT_EQ(panel->requests[0].textField->size, (Size{192, 21}));
    }
}

TEST(Alert, ButtonsSpeakTheUsersLanguage)
{
    const Tests::ReplacedEnvironment environment;
    environment->set("LANG", "de_DE.UTF-8");
    const Shared<Lorrel::Resources::Found>::Override fresh;
    const Tests::ReplacedAlertPanel panel;
    Alert::confirm("", "");
    Alert::askForText("", "", {}, [](const std::string&, bool) {});
    EXPECT_EQ(panel->requests[0].buttons, (Titles{"Nein", "Ja"}));
    EXPECT_EQ(panel->requests[1].buttons, (Titles{"OK", "Abbrechen"}));
}

}  // namespace
