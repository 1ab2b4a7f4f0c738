#include <csignal>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/bundle/UserDefaults.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeEnvironment.h"
#include "tests/support/ResourceLimit.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Torture.h"

namespace Platform {
namespace {

class UserDefaultsTest : public testing::Test {
protected:
    UserDefaultsTest() : environment(home.path()) {}

    std::shared_ptr<UserDefaults> open(std::string_view name = "org.example.suite")
    {
        return UserDefaults::suite(name);
    }

    std::vector<std::string> filesKeptAside() const
    {
        std::vector<std::string> kept;
        for (const auto& file : std::filesystem::directory_iterator(home / ".config/user-defaults")) {
            if (file.path().string().find(".plist.corrupt-") != std::string::npos) kept.push_back(file.path());
        }
        return kept;
    }

    Tests::TemporaryDirectory home;
    Tests::ReplacedEnvironment environment;
    Tests::ReplacedLog log;
};

// Does the work in a process of its own.
pid_t started(const std::function<int()>& work)
{
    const pid_t process = ::fork();
    if (process == 0) ::_exit(work());
    return process;
}

// Waits for its end; the exit code, or 128 and the signal's number.
int ended(pid_t process)
{
    int status = -1;
    ::waitpid(process, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

TEST_F(UserDefaultsTest, SuitesOfAnyNameStayApartAndInTheirFolder)
{
    const std::vector<std::string> names = {"a", "A", "", "..", "../a", ".hidden", "a/b", "ü x", "a.plist"};
    for (const auto& name : names) open(name)->set("name", name);
    for (const auto& name : names) {
        EXPECT_EQ(open(name)->string("name"), name);
        EXPECT_EQ(std::filesystem::path(open(name)->path()).parent_path(), home / ".config/user-defaults");
    }
}

TEST_F(UserDefaultsTest, ChangeByAnotherOpenerIsSeen)
{
    const auto reader = open();
    const auto writer = open();
    for (int i = 0; i < 20; ++i) {
        writer->set("turn", i);
        EXPECT_EQ(reader->integer("turn"), i);
    }
    std::filesystem::remove(reader->path());
    EXPECT_EQ(reader->integer("turn"), std::nullopt);
}

TEST_F(UserDefaultsTest, SurvivesBeingKilledAtAnyInstantOfASave)
{
    const long saves = Tests::atLength("saves", 500);
    int total = 0;
    for (int round = 0; total < saves; ++round) {
        int pipe[2];
        ASSERT_EQ(::pipe(pipe), 0);
        const pid_t saver = started([&] {
            const auto defaults = open();
            for (int i = total + 1;; ++i) {
                defaults->set("saved", i);
                if (::write(pipe[1], &i, sizeof i) != sizeof i) return 1;
            }
        });
        ::close(pipe[1]);
        int saved = 0;
        // Some saves, then an end at an instant that nobody chose.
        const int last = total + 5 + (round * 37) % 30;
        while (saved < last && ::read(pipe[0], &saved, sizeof saved) == sizeof saved) continue;
        ::kill(saver, SIGKILL);
        while (::read(pipe[0], &saved, sizeof saved) == sizeof saved) continue;
        ::close(pipe[0]);
        ASSERT_EQ(ended(saver), 128 + SIGKILL);

        const auto found = open()->integer("saved");
        ASSERT_TRUE(found.has_value());
        ASSERT_TRUE(*found == saved || *found == saved + 1) << *found << " after " << saved;
        total = static_cast<int>(*found);
    }
    EXPECT_TRUE(filesKeptAside().empty());
    EXPECT_EQ(log->messages(), std::vector<std::string>());
}

TEST_F(UserDefaultsTest, DamagedFileIsKeptAsideAndTold)
{
    open()->set("one", PropertyList::Array{"text", 1, Date(5)});
    open()->set("two", 2);
    const std::string path = open()->path();
    const std::string whole = Tests::contentOf(path);
    std::vector<std::string> damaged = {"<plist><array/></plist>", "not a list", std::string(100'000, '\0')};
    for (std::size_t length = 0; length < whole.size(); ++length) damaged.push_back(whole.substr(0, length));

    for (const auto& content : damaged) {
        home.write(".config/user-defaults/org.example.suite.plist", content);
        log->clear();
        const auto defaults = open();
        ASSERT_TRUE(defaults->keys().empty()) << content.size();
        defaults->set("new", 1);
        ASSERT_EQ(open()->keys(), std::vector<std::string>{"new"});
        const auto kept = filesKeptAside();
        ASSERT_EQ(kept.size(), 1u) << content.size();
        ASSERT_EQ(Tests::contentOf(kept.front()), content);
        ASSERT_EQ(log->count("damaged"), 1u);
        std::filesystem::remove(kept.front());
    }
    // Larger than the memory, but empty on the disk.
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40);
    EXPECT_TRUE(open()->keys().empty());
    EXPECT_EQ(filesKeptAside().size(), 1u);
}

TEST_F(UserDefaultsTest, WritersInSeveralProcessesLoseNoKey)
{
    std::vector<pid_t> writers;
    for (const std::string writer : {"a", "b", "c", "d"}) {
        writers.push_back(started([&] {
            const auto defaults = open();
            for (int i = 0; i < 50; ++i) defaults->set(writer + std::to_string(i), i);
            return 0;
        }));
    }
    for (const pid_t writer : writers) EXPECT_EQ(ended(writer), 0);
    EXPECT_EQ(open()->keys().size(), 200u);
    EXPECT_EQ(log->messages(), std::vector<std::string>());
}

TEST_F(UserDefaultsTest, ForeignValuesStayAndOneThatCannotBeStoredHindersNoOther)
{
    const PropertyList::Dictionary inner = {{"deep", PropertyList::Array{1.5, true}}};
    const auto xml = PropertyList(PropertyList::Dictionary{{"newer", inner}, {"count", 1}}).xml();
    home.write(".config/user-defaults/org.example.suite.plist", *xml);
    const auto defaults = open();
    defaults->set("bad", std::string("\xff\xfe"));
    defaults->set("count", 2);
    EXPECT_EQ(log->count("\"bad\" cannot be stored"), 1u);
    EXPECT_EQ(open()->value("newer"), PropertyList(inner));
    EXPECT_EQ(open()->integer("count"), 2);
    EXPECT_EQ(open()->keys().size(), 2u);
}

TEST_F(UserDefaultsTest, FullDiskKeepsTheOldFileAndTheNewValueInMemory)
{
    const auto defaults = open();
    defaults->set("small", 1);
    {
        const Tests::ResourceLimit fullDisk(RLIMIT_FSIZE, 128 << 10);
        defaults->set("large", std::string(200'000, 'x'));
    }
    EXPECT_EQ(log->count("write"), 1u);
    EXPECT_EQ(open()->keys(), std::vector<std::string>{"small"});
    EXPECT_EQ(defaults->string("large"), std::string(200'000, 'x'));
    defaults->remove("small");
    EXPECT_EQ(open()->keys(), std::vector<std::string>{"large"});
}

}  // namespace
}  // namespace Platform
