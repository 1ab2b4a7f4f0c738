#include <csignal>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "Lorrel/apps/Shell.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/OpenDescriptors.h"
#include "tests/support/TemporaryDirectory.h"

namespace Lorrel {
namespace {

TEST(Shell, AnswersOutputCodeAndManner)
{
    const Tests::EnvironmentVariable otherLocale("LC_ALL", "C");
    const Tests::EnvironmentVariable inherited("PELLORA_TEST", "from outside");
    const struct {
        std::vector<std::string> arguments;
        std::optional<std::string> output;
        int code;
        bool didExit;
    } rows[] = {
        {{"echo hello"}, "hello\n", 0, true},
        {{"exit 3"}, "", 3, true},
        {{"printf partial; kill -TERM $$"}, "partial", SIGTERM, false},
        {{"echo $0-$1-$2-$#", "zero", "a b", "$x"}, "zero-a b-$x-2\n", 0, true},
        {{"printf 'ä\\0b'"}, std::string("ä\0b", 4), 0, true},
        {{"printf '\\xc3'; exit 4"}, std::nullopt, 4, true},
        {{"echo $LC_ALL; env | grep -c ^LC_ALL="}, "en_US.UTF-8\n1\n", 0, true},
        {{"echo $PELLORA_TEST"}, "from outside\n", 0, true},
        {{"no-such-command"}, "", 127, true},
        {{"head -c 100000000 /dev/zero >&2; echo done"}, "done\n", 0, true},
        {{"head -c 1048576 /dev/zero | tr '\\0' x"}, std::string(1 << 20, 'x'), 0, true},
        {{}, "", 2, true},
        {{std::string(1 << 20, ' ')}, std::nullopt, 0, false},  // more than the kernel takes as one argument
    };
    for (const auto& row : rows) {
        const ShellOutput result = Shell::run(row.arguments);
        SCOPED_TRACE(row.arguments.empty() ? "no arguments" : row.arguments.front().substr(0, 80));
        EXPECT_EQ(result.output(), row.output);
        EXPECT_EQ(result.exitCode(), row.code);
        EXPECT_EQ(result.didExit(), row.didExit);
    }
}

TEST(Shell, WaitsForBackgroundJobsThatHoldItsOutput)
{
    const Tests::TemporaryDirectory folder;
    const std::string fifo = folder / "fifo";
    const ShellOutput result =
        Shell::run({"mkfifo \"$0\"; (read line < \"$0\"; echo late) & echo now; (echo go > \"$0\") & exit 5", fifo});
    EXPECT_EQ(result.output(), "now\nlate\n");
    EXPECT_EQ(result.exitCode(), 5);
}

TEST(Shell, CommandHasPlainSignalsAndNoForeignDescriptors)
{
    sigset_t blocked;
    sigset_t previous;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &previous);
    const auto formerPipe = std::signal(SIGPIPE, SIG_IGN);
    const int leaky = ::open("/dev/null", O_RDONLY);  // without close-on-exec
    EXPECT_EQ(Shell::run({"ls /proc/self/fd | wc -l"}).output(), "4\n") << "three, and that of ls itself";
    for (const int number : {SIGTERM, SIGPIPE}) {
        const ShellOutput result = Shell::run({"kill -$0 $$; echo alive", std::to_string(number)});
        EXPECT_EQ(result.exitCode(), number);
        EXPECT_FALSE(result.didExit());
    }
    ::close(leaky);
    std::signal(SIGPIPE, formerPipe);
    ::pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

TEST(Shell, ParallelRunsShareNothing)
{
    const long before = Tests::openDescriptors();
    std::vector<std::thread> threads;
    for (int i = 0; i < 64; ++i) {
        threads.emplace_back([i] {
            const ShellOutput result = Shell::run({"echo $0; exit $0", std::to_string(i)});
            EXPECT_EQ(result.output(), std::to_string(i) + "\n");
            EXPECT_EQ(result.exitCode(), i);
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(Tests::openDescriptors(), before);
}

}  // namespace
}  // namespace Lorrel
