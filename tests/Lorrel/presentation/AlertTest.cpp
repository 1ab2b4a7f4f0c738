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
    for (const int answer : {AlertAnswer::cancelled, 999, 1000, 1001, 1002}) {
        const Tests::ReplacedAlertPanel panel(AlertAnswer{answer, ""});
        EXPECT_EQ(Alert::confirm("Delete?", "For ever."), answer == 1001) << answer;
        EXPECT_EQ(panel->requests[0].style, AlertStyle::warning);
        EXPECT_EQ(panel->requests[0].message, "Delete?");
        EXPECT_EQ(panel->requests[0].information, "For ever.");
        EXPECT_FALSE(panel->requests[0].textField);

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
        std::vector<std::pair<std::string, bool>> results;
        const auto keep = [&](const std::string& text, bool isConfirmed) { results.emplace_back(text, isConfirmed); };
        Alert::askForText("Name", "", "before", keep);
        Alert::askForText("Name", "", std::nullopt, keep);
        EXPECT_EQ(results, (decltype(results)(2, {"typed", answer == 1000})));
        EXPECT_EQ(panel->requests[0].textField->text, "before");
        EXPECT_EQ(panel->requests[0].textField->size, (Size{192, 21}));
        EXPECT_EQ(panel->requests[1].textField->text, "");
    }
}

Titles titlesOf(const std::string& language)
{
    const Tests::ReplacedEnvironment environment;
    environment->set("LANG", language);
    const Shared<Lorrel::Resources::Found>::Override fresh;
    const Tests::ReplacedAlertPanel panel;
    Alert::confirm("", "");
    Alert::askForText("", "", {}, [](const std::string&, bool) {});
    Titles titles = panel->requests[0].buttons;
    for (const auto& title : panel->requests[1].buttons) titles.push_back(title);
    return titles;
}

TEST(Alert, ButtonsSpeakTheUsersLanguage)
{
    EXPECT_EQ(titlesOf("de_DE.UTF-8"), (Titles{"Nein", "Ja", "OK", "Abbrechen"}));
    EXPECT_EQ(titlesOf("ar_EG.UTF-8")[1], "نعم");
}

}  // namespace
