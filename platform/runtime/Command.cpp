#include "platform/runtime/Command.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/runtime/Data.h"
#include "platform/runtime/FileDescriptor.h"

namespace Platform {

namespace {

constexpr std::size_t firstPiece = 64 << 10;
// Above the size from which the C library gives freed memory back to the system at once.
constexpr std::size_t largestPiece = 64 << 20;

// Output of unknown length, gathered in pieces: growing never copies, and
// joining frees each piece as it goes, so that beside the text itself hardly more than
// one piece is in use at any time.
class Pieces {
public:
    bool readFrom(int descriptor)
    {
        if (pieces_.empty() || filled_ == pieces_.back().size()) addPiece();
        Data& piece = pieces_.back();
        const ssize_t count = ::read(descriptor, piece.data() + filled_, piece.size() - filled_);
        if (count > 0) filled_ += static_cast<std::size_t>(count);
        return count > 0 || (count < 0 && errno == EINTR);
    }

    std::string joined()
    {
        if (!pieces_.empty()) pieces_.back().resize(filled_);
        std::size_t total = 0;
        for (const auto& piece : pieces_) total += piece.size();
        std::string text;
        text.reserve(total);
        for (auto& piece : pieces_) {
            text.append(reinterpret_cast<const char*>(piece.data()), piece.size());
            Data().swap(piece);
        }
        return text;
    }

private:
    void addPiece()
    {
        const std::size_t size = pieces_.empty() ? firstPiece : std::min(2 * pieces_.back().size(), largestPiece);
        pieces_.emplace_back(size);
        filled_ = 0;
    }

    std::vector<Data> pieces_;
    std::size_t filled_ = 0;  // of the last one
};

// The settings of posix_spawn.
class SpawnSettings {
public:
    explicit SpawnSettings(int output)
    {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings()
    {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    const posix_spawn_file_actions_t* actions() const { return &actions_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

std::vector<std::string> environmentWith(const Command& command)
{
    std::vector<std::string> variables;
    for (const auto& [name, value] : command.environment) variables.push_back(name + "=" + value);
    const std::size_t replaced = variables.size();
    const auto isReplaced = [&](const std::string& variable) {
        const std::string name = variable.substr(0, variable.find('=') + 1);
        return std::any_of(variables.begin(), variables.begin() + static_cast<long>(replaced),
                           [&](const std::string& own) { return own.starts_with(name); });
    };
    for (char** variable = environ; variable && *variable; ++variable) {
        if (!isReplaced(*variable)) variables.emplace_back(*variable);
    }
    return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

Result<pid_t> start(const Command& command, int output)
{
    std::vector<std::string> arguments = {command.executable};
    arguments.insert(arguments.end(), command.arguments.begin(), command.arguments.end());
    std::vector<std::string> environment = environmentWith(command);
    const SpawnSettings settings(output);
    pid_t process = -1;
    const int refusal = ::posix_spawn(&process, command.executable.c_str(), settings.actions(), settings.attributes(),
                                      pointersTo(arguments).data(), pointersTo(environment).data());
    if (refusal != 0) return Error::fromErrno("posix_spawn", command.executable, refusal);
    return process;
}

void awaitEnd(pid_t process, CommandOutput& output)
{
    int status = 0;
    pid_t ended;
    do {
        ended = ::waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    if (ended != process) return;
    output.didExit = WIFEXITED(status);
    output.status = output.didExit ? WEXITSTATUS(status) : WTERMSIG(status);
}

}  // namespace

Result<CommandOutput> runCommand(const Command& command)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return Error::fromErrno("pipe2", command.executable, errno);
    const FileDescriptor output(ends[0]);
    FileDescriptor input(ends[1]);
    ::fcntl(output.get(), F_SETPIPE_SZ, 1 << 20);  // fewer turns for much output; refused is as well

    const auto process = start(command, input.get());
    input.reset();
    if (!process) return process.error();
    Pieces pieces;
    while (pieces.readFrom(output.get())) continue;
    CommandOutput result;
    awaitEnd(*process, result);
    result.output = pieces.joined();
    return result;
}

}  // namespace Platform
