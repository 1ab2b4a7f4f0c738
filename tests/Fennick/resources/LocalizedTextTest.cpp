#include <set>

#include <gtest/gtest.h>

#include "Fennick/LocalizedText.h"
#include "Fennick/resource_bundle_accessor.h"
#include "Lorrel/resource_bundle_accessor.h"
#include "platform/runtime/Shared.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/TemporaryDirectory.h"

TEST(LocalizedText, ShowsTheKeyUnlessTheTextKeepsItsPromise)
{
    const struct {
        const char *text, *plain, *number, *argument;
    } cases[] = {
        {"plain 100%%", "plain 100%", "K", "K"},
        {"%ld s", "K", "-7 s", "K"},
        {"in %1$lld%%", "K", "in -7%", "K"},
        {"at %@!", "K", "K", "at 5%d!"},
        {"%ld of %ld", "K", "K", "K"},
        {"%s", "K", "K", "K"},
        {"%", "K", "K", "K"},
        {"%2$@", "K", "K", "K"},
    };
    for (const auto& given : cases) {
        const Tests::TemporaryDirectory folder;
        folder.write(
            "T.bundle/en.lproj/Localizable.strings",
            std::string("<plist version=\"1.0\"><dict><key>K</key><string>") + given.text + "</string></dict></plist>");
        const auto bundle = Platform::Bundle::open(folder / "T.bundle");
        EXPECT_EQ(Fennick::localizedText(*bundle, "K"), given.plain) << given.text;
        EXPECT_EQ(Fennick::localizedText(*bundle, "K", -7), given.number) << given.text;
        EXPECT_EQ(Fennick::localizedText(*bundle, "K", "5%d"), given.argument) << given.text;
        EXPECT_EQ(Fennick::localizedText(*bundle, "MISSING", 1), "MISSING");
    }
}

TEST(ResourceTables, HoldEveryKeyInEveryLanguage)
{
    std::set<std::string> yesterdays;
    for (const char* const locale : {"en_US", "de_DE", "fr_FR", "es_ES", "it_IT", "ru_RU", "ar_EG", "ja_JP", "zh_CN"}) {
        SCOPED_TRACE(locale);
        Tests::ReplacedEnvironment environment;
        environment->set("LANG", std::string(locale) + ".UTF-8");
        const Platform::Shared<Fennick::Resources::Found>::Override fennickAfresh;
        const Platform::Shared<Lorrel::Resources::Found>::Override lorrelAfresh;
        for (const auto key : {"AGO_SECONDS", "AGO_MINUTES", "HOURS_AGO", "DAYS_AGO"})
            EXPECT_NE(Fennick::Resources::text(key, 42).find("42"), std::string::npos) << key;
        for (const auto key : {"TODAY_AT", "YESTERDAY_AT"})
            EXPECT_NE(Fennick::Resources::text(key, "9:41").find("9:41"), std::string::npos) << key;
        for (const auto key : {"ONE_MINUTE_AGO", "ONE_HOUR_AGO"}) EXPECT_NE(Fennick::Resources::text(key), key);
        for (const auto key : {"UNKNOWN_COMPUTER_NAME", "NO", "YES", "CANCEL", "ALLOW"})
            EXPECT_NE(Lorrel::Resources::text(key), key);
        yesterdays.insert(Fennick::Resources::text("YESTERDAY"));
    }
    EXPECT_EQ(yesterdays.size(), 9u);
}
