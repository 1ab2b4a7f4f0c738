#include <cerrno>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/Shared.h"
#include "platform/session/ApplicationService.h"
#include "platform/session/LoginItems.h"
#include "platform/session/internal/XdgLoginItems.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/ApplicationBundle.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ResourceLimit.h"

namespace fs = std::filesystem;
using Platform::Bundle;
using Status = Platform::ApplicationService::Status;

namespace {

const std::string app = "com.example.app";
const std::string starter = "com.example.app.starter";
constexpr const char* generator = "/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator";

struct LoginItemsTest : testing::Test {
    Tests::TemporaryDirectory home;
    Tests::ReplacedEnvironment environment{home.path()};
    Platform::XdgLoginItems items;
    Platform::XdgApplicationServices services;
    std::string autostart = home / ".config/autostart";
    std::string bundle = home / "Apps/My App.app";
    std::string program = writeBundle("Apps/My App.app");
    Platform::Shared<Bundle>::Override mainBundle{Bundle::open(bundle)};

    // The main application with its starter inside, which leaves a mark; the starter's program.
    std::string writeBundle(const std::string& name) const
    {
        const std::string script = "#!/bin/sh\nprintf %s \"$0\" > \"$MARK\"\n";
        Tests::makeApplication(home, name, app, script);
        return Tests::makeApplication(home, name + "/Contents/Library/LoginItems/Starter.app", starter, script);
    }

    std::string fileOf(const std::string& identifier) const { return autostart + "/" + identifier + ".desktop"; }
    void writeEntry(const std::string& identifier, const std::string& text) const
    {
        home.write(".config/autostart/" + identifier + ".desktop", text);
    }

    // Labels with the state of their switch.
    std::map<std::string, bool> jobs() const
    {
        std::map<std::string, bool> result;
        const auto dictionaries = items.jobDictionaries();
        for (const auto& job : *dictionaries) {
            result[*job.find("Label")->text()] = job.find("OnDemand")->boolean().value();
        }
        return result;
    }
};

using Jobs = std::map<std::string, bool>;

}  // namespace

TEST_F(LoginItemsTest, SwitchingOnWritesTheEntryAndOffRemovesIt)
{
    for (const bool isOn : {true, true, false, false}) {
        EXPECT_TRUE(items.setEnabled(starter, isOn));
        EXPECT_EQ(jobs(), isOn ? (Jobs{{starter, true}}) : Jobs());
        EXPECT_EQ(fs::exists(fileOf(starter)), isOn);
    }
    for (const std::string identifier : {"", ".", "..", "../x", "a/b", "com.example.unknown"}) {
        EXPECT_FALSE(items.setEnabled(identifier, true)) << identifier;
    }
    EXPECT_FALSE(items.setEnabled("../x", false));
    EXPECT_TRUE(fs::is_empty(autostart));
}

TEST_F(LoginItemsTest, ReadsWhatOthersWroteAndRespectsTheirSwitches)
{
    const std::string start = "[Desktop Entry]\nType=Application\nName=x\nExec=/bin/true\n";
    writeEntry("b.hidden", start + "Hidden=true\n");
    writeEntry("a.plain", start);
    writeEntry("c.gnome", start + "X-GNOME-Autostart-enabled=false\n");
    writeEntry("d.both", start + "X-GNOME-Autostart-enabled=true\nHidden=false\n");
    writeEntry("e.empty", "");
    home.makeFolder(".config/autostart/f.folder.desktop");
    home.write(".config/autostart/other.txt", start);
    fs::create_symlink("/nowhere", autostart + "/g.broken.desktop");
    EXPECT_EQ(jobs(),
              (Jobs{{"a.plain", true}, {"b.hidden", false}, {"c.gnome", false}, {"d.both", true}, {"e.empty", true}}));
    EXPECT_EQ(items.jobDictionaries()->front().find("Label")->text()->c_str(), std::string("a.plain"));
}

TEST_F(LoginItemsTest, SwitchingOnMendsAnEntryAndKeepsEveryForeignLine)
{
    const std::string exec = "Exec=\"" + program + "\"\n", tryExec = "TryExec=" + program + "\n";
    const std::string fresh = "[Desktop Entry]\nType=Application\nName=Starter\n" + exec + tryExec;
    const std::pair<std::string, std::string> rows[] = {
        {"", fresh},
        {"# nothing\n", "# nothing\n" + fresh},
        {"[Other]\nExec=a\n", "[Other]\nExec=a\n" + fresh},
        {"# mine\n\n[Desktop Entry]\nName = Own name\nName[de]=Meins\nHidden=true\nExec=/gone\nX-Delay=a=b\n\n"
         "[Desktop Action x]\nExec=y\n",
         "# mine\n\n[Desktop Entry]\nName = Own name\nName[de]=Meins\n" + exec + "X-Delay=a=b\nType=Application\n" +
             tryExec + "\n[Desktop Action x]\nExec=y\n"},
    };
    for (const auto& [before, after] : rows) {
        writeEntry(starter, before);
        ASSERT_TRUE(items.setEnabled(starter, true));
        EXPECT_EQ(Tests::contentOf(fileOf(starter)), after);
        EXPECT_EQ(services.loginItemService(starter)->status(), Status::enabled);
    }
}

TEST_F(LoginItemsTest, AReadOnlyFolderOrAFullDiskKeepsTheEntryAndNothingElse)
{
    const std::string before = "[Desktop Entry]\nHidden=true\nExec=/gone\n";
    writeEntry(starter, before);
    for (const auto& folder : {home.path(), home / ".config", autostart}) ::chmod(folder.c_str(), 0555);
    const uid_t self = ::geteuid();
    ASSERT_TRUE(self != 0 || ::seteuid(65534) == 0) << "root may write everywhere";
    EXPECT_EQ(items.setEnabled(starter, true).error().code, EACCES);
    EXPECT_EQ(items.setEnabled(starter, false).error().code, EACCES);
    EXPECT_EQ(jobs(), (Jobs{{starter, false}}));
    ASSERT_EQ(::seteuid(self), 0);
    for (const auto& folder : {home.path(), home / ".config", autostart}) ::chmod(folder.c_str(), 0755);

    {
        const Tests::ResourceLimit fullDisk(RLIMIT_FSIZE, 16);
        EXPECT_EQ(items.setEnabled(starter, true).error().call, "write");
    }
    EXPECT_EQ(Tests::contentOf(fileOf(starter)), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(autostart), {}), 1);
}

TEST_F(LoginItemsTest, AServiceFollowsTheEntryAndTheProgram)
{
    const auto service = services.loginItemService(starter);
    const auto unknown = services.loginItemService("com.example.unknown");
    EXPECT_EQ(service->status(), Status::notRegistered);
    EXPECT_EQ(unknown->status(), Status::notFound);
    EXPECT_FALSE(unknown->register_() || service->unregister());
    EXPECT_TRUE(service->register_());
    EXPECT_EQ(service->status(), Status::enabled);

    fs::rename(bundle, home / "Apps/Moved.app");
    EXPECT_EQ(service->status(), Status::notFound);
    const Platform::Shared<Bundle>::Override moved(Bundle::open(home / "Apps/Moved.app"));
    EXPECT_TRUE(services.loginItemService(starter)->register_()) << "mends the entry";
    EXPECT_EQ(service->status(), Status::enabled);
    EXPECT_TRUE(service->unregister());
    EXPECT_EQ(jobs(), Jobs{});

    const Platform::Shared<Bundle>::Override bare(Bundle::open(home.makeFolder("bare")));
    const auto none = services.mainAppService();
    EXPECT_EQ(none->status(), Status::notFound);
    EXPECT_FALSE(none->register_() || none->unregister());
}

TEST_F(LoginItemsTest, AServiceThatTheUserSwitchedOffStaysOff)
{
    for (const std::string key : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        const auto service = services.mainAppService();
        fs::remove_all(autostart);
        ASSERT_TRUE(service->register_());
        const std::string switchedOff = Tests::contentOf(fileOf(app)) + key + "\n";
        writeEntry(app, switchedOff);
        EXPECT_EQ(service->status(), Status::requiresApproval);
        EXPECT_FALSE(service->register_());
        EXPECT_FALSE(service->unregister());
        EXPECT_EQ(Tests::contentOf(fileOf(app)), switchedOff);
    }
}

TEST_F(LoginItemsTest, StartersOfTheDesktopUnderstandTheEntryOfAnyPath)
{
    for (const std::string name : {"plain", "with space", "it's", "quo\"ted", "100%", "%u", "new\nline", "tab\t",
                                   "$HOME `x`", "back\\slash", "\xc3\xbc\xe6\x97\xa5"}) {
        SCOPED_TRACE(name);
        const std::string started = writeBundle(name + "/Pellora.app");
        const Platform::Shared<Bundle>::Override other(Bundle::open(home / (name + "/Pellora.app")));
        ASSERT_TRUE(items.setEnabled(starter, true));
        EXPECT_EQ(services.loginItemService(starter)->status(), Status::enabled);

        const Tests::TemporaryDirectory out;
        const std::string mark = out / "mark";
        EXPECT_EQ(Tests::ChildProcess({"dex", "--wait", fileOf(starter)}, {.environment = {{"MARK", mark}}}).wait(), 0);
        EXPECT_TRUE(fs::exists(mark) && fs::equivalent(Tests::contentOf(mark), started));

        const Tests::ChildOptions session{{{"XDG_CONFIG_HOME", home / ".config"}, {"XDG_CONFIG_DIRS", out.path()}}};
        EXPECT_EQ(Tests::ChildProcess({generator, out.path(), out.path(), out.path()}, session).wait(), 0);
        EXPECT_NE(Tests::contentOf(out / "app-com.example.app.starter@autostart.service").find("ExecStart="),
                  std::string::npos);
    }
}
