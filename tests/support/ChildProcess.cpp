#include "tests/support/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tests {

using Platform::FileDescriptor;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

std::vector<char*> pointersTo(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// What the child does between fork and exec: only calls that are allowed there.
[[noreturn]] void run(char* const* arguments, int output, int errors, pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    if (::getppid() != parent) ::_exit(127);
    if (output >= 0) ::dup2(output, STDOUT_FILENO);
    if (errors >= 0) ::dup2(errors, STDERR_FILENO);
    ::execvp(*arguments, arguments);
    ::_exit(127);
}

bool waitReadable(int descriptor, steady_clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
        pollfd entry{descriptor, POLLIN, 0};
        const int ready = ::poll(&entry, 1, static_cast<int>(std::max(left.count(), 0L)));
        if (ready >= 0 || errno != EINTR) return ready > 0;
    }
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, const ChildOptions& options)
{
    std::vector<std::string> command{"env"};
    for (const auto& [name, value] : options.environment) {
        if (!value) command.insert(command.begin() + 1, "--unset=" + name);
        if (value) command.push_back(name + '=' + *value);
    }
    command.insert(command.end(), arguments.begin(), arguments.end());
    const std::vector<char*> pointers = pointersTo(command);
    FileDescriptor target;
    if (options.streams == ChildStreams::silent) {
        target = FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    } else if (options.streams != ChildStreams::inherited) {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        output_ = FileDescriptor(ends[0]);
        target = FileDescriptor(ends[1]);
    }
    const int errors = options.streams == ChildStreams::output ? -1 : target.get();
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    if (pid_ == 0) run(pointers.data(), target.get(), errors, parent);
    if (pid_ > 0) pidDescriptor_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0)));
    if (!pidDescriptor_) throw std::runtime_error("no child process");
}

ChildProcess::~ChildProcess()
{
    signal(SIGKILL);
    wait();
}

std::optional<int> ChildProcess::wait(milliseconds timeout)
{
    if (status_ || !pidDescriptor_) return status_;
    if (!waitReadable(pidDescriptor_.get(), steady_clock::now() + timeout)) return std::nullopt;
    int status = 0;
    if (::waitpid(pid_, &status, 0) != pid_) return std::nullopt;
    status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return status_;
}

bool ChildProcess::fillBuffer(Deadline deadline)
{
    if (!output_ || !waitReadable(output_.get(), deadline)) return false;
    char chunk[4096];
    const ssize_t count = ::read(output_.get(), chunk, sizeof chunk);
    if (count <= 0) return false;
    buffer_.append(chunk, static_cast<std::size_t>(count));
    return true;
}

std::optional<std::string> ChildProcess::readLine(milliseconds timeout)
{
    const Deadline deadline = steady_clock::now() + timeout;
    std::size_t end = 0;
    while ((end = buffer_.find('\n')) == std::string::npos) {
        if (!fillBuffer(deadline)) return std::nullopt;
    }
    std::string line = buffer_.substr(0, end);
    buffer_.erase(0, end + 1);
    return line;
}

std::string ChildProcess::readAll(milliseconds timeout)
{
    const Deadline deadline = steady_clock::now() + timeout;
    while (fillBuffer(deadline)) {
    }
    return std::exchange(buffer_, {});
}

void ChildProcess::signal(int number)
{
    if (pidDescriptor_ && !status_) ::syscall(SYS_pidfd_send_signal, pidDescriptor_.get(), number, nullptr, 0);
}

}  // namespace Tests
