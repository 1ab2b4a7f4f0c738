#include "benchmarks/notifications/peers/Program.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Bench {

Program::Program(const std::vector<std::string>& command)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) std::abort();
    std::vector<char*> arguments;
    for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_ = ::vfork();
    if (pid_ == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execv(arguments[0], arguments.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    output_ = ends[0];
}

Program::~Program()
{
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        wait();
    }
    ::close(output_);
}

std::string Program::readLine() const
{
    std::string line;
    char c = 0;
    while (::read(output_, &c, 1) == 1 && c != '\n') line += c;
    return line;
}

void Program::wait()
{
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
}

void onPrivateBus(char** argv)
{
    if (::getenv("BENCH_ON_PRIVATE_BUS")) return;
    ::setenv("BENCH_ON_PRIVATE_BUS", "1", 1);
    std::vector<char*> command{const_cast<char*>("dbus-run-session"), const_cast<char*>("--")};
    for (; *argv; ++argv) command.push_back(*argv);
    command.push_back(nullptr);
    ::execvp(command[0], command.data());
    std::abort();
}

}  // namespace Bench
