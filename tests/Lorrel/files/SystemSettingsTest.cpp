#include <cerrno>

#include <gtest/gtest.h>

#include "Lorrel/files/Finder.h"
#include "Lorrel/files/Permissions.h"
#include "Lorrel/files/SystemSettings.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/fakes/FakeFileManager.h"
#include "tests/fakes/FakeIconService.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

using Texts = std::vector<std::string>;

struct FixedVersion final : Platform::OperatingSystemVersion {
    explicit FixedVersion(int major) : major_(major) {}
    int major() const override { return major_; }
    int major_;
};
using ReplacedVersion = Tests::Replaced<Platform::OperatingSystemVersion, FixedVersion>;

class SystemSettingsTest : public testing::Test {
protected:
    Texts opened() const
    {
        Texts texts;
        for (const auto& url : workspace->openedURLs()) texts.push_back(url.absoluteString());
        return texts;
    }

    Tests::ReplacedWorkspace workspace;
    Tests::ReplacedIconService icons;
};

TEST_F(SystemSettingsTest, PagesAreAddressesFromThirteenOnAndPanesBefore)
{
    const auto openAll = [] {
        SystemSettings::open();
        for (const auto page :
             {SystemSettingsPage::privacy, SystemSettingsPage::sharing, SystemSettingsPage::fullDiskAccess}) {
            SystemSettings::open(page);
        }
    };
    {
        const ReplacedVersion version(13);
        openAll();
        EXPECT_EQ(icons->nameOf(SystemSettings::icon()), "file /System/Applications/System Settings.app");
    }
    const ReplacedVersion version(12);
    openAll();
    EXPECT_EQ(icons->nameOf(SystemSettings::icon()), "file /System/Library/PreferencePanes/SharingPref.prefPane");
    EXPECT_EQ(opened(), (Texts{
                            "x-apple.systempreferences:",
                            "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension",
                            "x-apple.systempreferences:com.apple.Sharing-Settings.extension",
                            "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles",
                            "x-apple.systempreferences:",
                            "file:///System/Library/PreferencePanes/Privacy.prefPane",
                            "file:///System/Library/PreferencePanes/SharingPref.prefPane",
                            "file:///System/Library/PreferencePanes/Privacy.prefPane",
                        }));
}

TEST_F(SystemSettingsTest, PrivacyPagesOpenByTheirNames)
{
    Permissions::openPrivacySettings(PrivacyPage::allFiles);
    Permissions::openPrivacySettings(PrivacyPage::SystemServices);
    Permissions::openNotificationSettings();
    const std::string scheme = "x-apple.systempreferences:com.apple.preference.";
    EXPECT_EQ(opened(), (Texts{scheme + "security?Privacy_AllFiles", scheme + "security?Privacy_SystemServices",
                               scheme + "notifications"}));
    EXPECT_EQ(privacyPage("privacy_camera"), std::nullopt);
    for (int page = 0; page < 13; ++page) {
        EXPECT_EQ(privacyPage(rawValue(static_cast<PrivacyPage>(page))), static_cast<PrivacyPage>(page));
    }
}

TEST_F(SystemSettingsTest, FileBrowserShowsTheFileInItsFolder)
{
    Finder::reveal(Platform::Url::fromPath("/a/b/c.txt", false));
    Finder::reveal(*Platform::Url::parse("https://example.org/x"));
    const std::vector<std::pair<std::string, std::string>> expected = {{"/a/b/c.txt", "/a/b"}, {"/x", ""}};
    EXPECT_EQ(workspace->selectedFiles(), expected);
}

TEST(Permissions, FullDiskAccessIsRefusedOnlyByNotPermitted)
{
    const Tests::TemporaryDirectory home;
    Tests::ReplacedEnvironment environment(home.path());
    const Tests::ReplacedSystemRoots roots(home.path());
    Tests::ReplacedFileManager files;
    EXPECT_FALSE(Permissions::hasFullDiskAccess()) << "no folder to try";
    home.write("Library/Mail", "not a folder");
    EXPECT_FALSE(Permissions::hasFullDiskAccess() || Permissions::canReadTCCDatabase());
    home.makeFolder("Library/Cookies");
    const std::string last = home.makeFolder("Library/Safari");
    EXPECT_TRUE(Permissions::hasFullDiskAccess());
    files->refuse(last, EACCES);
    EXPECT_TRUE(Permissions::hasFullDiskAccess());
    const std::string database = home.write("Library/Application Support/com.apple.TCC/TCC.db", "data");
    EXPECT_TRUE(Permissions::canReadTCCDatabase());
    files->refuse(last, EPERM);
    files->refuse(database, EPERM);
    EXPECT_FALSE(Permissions::hasFullDiskAccess() || Permissions::canReadTCCDatabase());
}

}  // namespace
}  // namespace Lorrel
