#include "platform/session/internal/DetachedProgram.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/syslog.h>
#include <sys/wait.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include "platform/runtime/FileDescriptor.h"

namespace Platform {

namespace {

constexpr auto longestWait = std::chrono::seconds(5);

// What the new process and the one between tell through the pipe.
struct Report {
    pid_t process = -1;
    int error = 0;
};

// All that the child needs, made before the fork: between fork and exec only
// async-signal-safe calls are allowed. The child changes none of it.
struct Preparation {
    const char* executable;
    std::vector<char*> arguments;
    int input;
    int output;
    int reports;
};

void report(int descriptor, Report message)
{
    [[maybe_unused]] const ssize_t written = ::write(descriptor, &message, sizeof message);
}

void closeOthersOnExec()
{
    if (::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    for (rlim_t descriptor = 3; descriptor < limit.rlim_cur; ++descriptor) {
        ::fcntl(static_cast<int>(descriptor), F_SETFD, FD_CLOEXEC);
    }
}

void resetSignals()
{
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) ::sigaction(number, &standard, nullptr);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void execute(const Preparation& prepared)
{
    ::dup2(prepared.input, STDIN_FILENO);
    ::dup2(prepared.output, STDOUT_FILENO);
    ::dup2(prepared.output, STDERR_FILENO);
    closeOthersOnExec();
    resetSignals();
    if (::chdir("/") == 0) ::execv(prepared.executable, prepared.arguments.data());
    report(prepared.reports, {::getpid(), errno});
    ::_exit(127);
}

// All signals held back. A child that shares our memory must not run our handlers.
class SignalsHeld {
public:
    SignalsHeld()
    {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &previous_);
    }
    ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t previous_{};
};

// The child: leaves the session and starts the program as its own child, which
// this one's end hands to the session's first process. It shares our memory,
// which spares a copy, and we wait for its end; the program's process has a
// copy of its own, so that we do not wait for its execution without deadline.
[[noreturn]] void startAndLeave(const Preparation& prepared)
{
    ::setsid();
    const pid_t process = ::_Fork();
    if (process == 0) execute(prepared);
    report(prepared.reports, {process, process < 0 ? errno : 0});
    ::_exit(0);
}

pid_t startChild(const Preparation& prepared)
{
    const SignalsHeld held;
    const pid_t child = ::vfork();
    if (child == 0) startAndLeave(prepared);
    return child;
}

// Above the standard streams, where the child's dup2 cannot meet it.
FileDescriptor raised(FileDescriptor descriptor)
{
    if (!descriptor || descriptor.get() > STDERR_FILENO) return descriptor;
    return FileDescriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

FileDescriptor outputFor(const std::string& executable)
{
    const std::string name = executable.substr(executable.rfind('/') + 1);
    FileDescriptor journal(::sd_journal_stream_fd(name.c_str(), LOG_INFO, 0));
    if (journal) return raised(std::move(journal));
    return raised(FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC)));
}

bool waitReadable(int descriptor, std::chrono::steady_clock::time_point deadline)
{
    pollfd state{descriptor, POLLIN, 0};
    while (true) {
        const auto left = deadline - std::chrono::steady_clock::now();
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(left).count();
        if (milliseconds <= 0) return false;
        const int ready = ::poll(&state, 1, static_cast<int>(milliseconds));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return false;
    }
}

// Reads until the pipe ends, which it does when the program executes.
Report outcome(int reports)
{
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    Report last;
    Report message;
    while (waitReadable(reports, deadline)) {
        if (::read(reports, &message, sizeof message) != sizeof message) break;
        last.process = message.process;
        if (message.error != 0) last.error = message.error;
    }
    return last;
}

void takeStatus(pid_t child)
{
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

std::vector<char*> argumentList(const DetachedProgram& program)
{
    std::vector<char*> list{const_cast<char*>(program.executable.c_str())};
    for (const auto& argument : program.arguments) list.push_back(const_cast<char*>(argument.c_str()));
    list.push_back(nullptr);
    return list;
}

}  // namespace

Result<pid_t> startDetached(const DetachedProgram& program)
{
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return Error::fromErrno("pipe2", program.executable, errno);
    const FileDescriptor reports = raised(FileDescriptor(ends[0]));
    FileDescriptor reporter = raised(FileDescriptor(ends[1]));
    const FileDescriptor input = raised(FileDescriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC)));
    const FileDescriptor output = outputFor(program.executable);
    const Preparation prepared{program.executable.c_str(), argumentList(program), input.get(), output.get(),
                               reporter.get()};

    const pid_t child = startChild(prepared);
    if (child < 0) return Error::fromErrno("vfork", program.executable, errno);
    reporter.reset();
    const Report result = outcome(reports.get());
    takeStatus(child);
    if (result.error != 0) return Error::fromErrno("exec", program.executable, result.error);
    return result.process;
}

}  // namespace Platform
