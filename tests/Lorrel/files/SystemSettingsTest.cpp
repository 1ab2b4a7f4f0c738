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
    Texts pictures;
    for (const int major : {13, 12}) {
        const Tests::Replaced<Platform::OperatingSystemVersion, FixedVersion> version(major);
        SystemSettings::open();
        for (const auto page :
             {SystemSettingsPage::privacy, SystemSettingsPage::sharing, SystemSettingsPage::fullDiskAccess}) {
            SystemSettings::open(page);
        }
        pictures.push_back(icons->nameOf(SystemSettings::icon()));
    }
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
    EXPECT_EQ(pictures, (Texts{"file /System/Applications/System Settings.app",
                               "file /System/Library/PreferencePanes/SharingPref.prefPane"}));
}

TEST_F(SystemSettingsTest, PrivacyPagesOpenByTheirNamesAndFilesInTheirFolders)
{
    Permissions::openPrivacySettings(PrivacyPage::allFiles);
    Permissions::openPrivacySettings(PrivacyPage::SystemServices);
    Permissions::openNotificationSettings();
    const std::string scheme = "x-apple.systempreferences:com.apple.preference.";
    EXPECT_EQ(opened(), (Texts{scheme + "security?Privacy_AllFiles", scheme + "security?Privacy_SystemServices",
                               scheme + "notifications"}));
    EXPECT_EQ(privacyPage("Privacy_SystemServices"), PrivacyPage::SystemServices);
    EXPECT_EQ(privacyPage("privacy_camera"), std::nullopt);

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
