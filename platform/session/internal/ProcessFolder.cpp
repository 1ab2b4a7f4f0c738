#include "platform/session/internal/ProcessFolder.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Platform {

namespace {

// "123/exe", made without the heap: a pass asks for hundreds.
class ProcessFile {
public:
    ProcessFile(pid_t process, std::string_view file)
    {
        char* end = std::to_chars(path_.data(), path_.data() + 16, process).ptr;
        *end++ = '/';
        end = std::copy(file.begin(), file.end(), end);
        *end = '\0';
    }
    const char* path() const { return path_.data(); }

private:
    std::array<char, 32> path_;
};

pid_t processOf(const char* name)
{
    const char* end = name + std::strlen(name);
    pid_t process = 0;
    const auto parsed = std::from_chars(name, end, process);
    return parsed.ec == std::errc() && parsed.ptr == end ? process : 0;
}

// What getdents64 writes; the C library's record has another layout on some machines.
struct Record {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
};
constexpr std::size_t nameOffset = 19;

}  // namespace

ProcessFolder::ProcessFolder(const std::string& path)
    : folder_(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
}

bool ProcessFolder::anyProcess(const std::function<bool(pid_t)>& block) const
{
    // Some 250 processes at a time: what the stack has once held, the program keeps.
    alignas(Record) std::array<char, 8192> records;
    const std::lock_guard lock(passMutex_);
    ::lseek(folder_.get(), 0, SEEK_SET);
    while (true) {
        const long filled = ::syscall(SYS_getdents64, folder_.get(), records.data(), records.size());
        if (filled <= 0) return false;
        Record record;
        for (long at = 0; at < filled; at += record.length) {
            std::memcpy(&record, records.data() + at, nameOffset);
            const pid_t process = processOf(records.data() + at + nameOffset);
            if (process > 0 && block(process)) return true;
        }
    }
}

std::optional<std::string_view> ProcessFolder::executable(pid_t process, Buffer& buffer) const
{
    const ssize_t length =
        ::readlinkat(folder_.get(), ProcessFile(process, "exe").path(), buffer.data(), buffer.size());
    if (length <= 0) return std::nullopt;
    std::string_view path(buffer.data(), static_cast<std::size_t>(length));
    constexpr std::string_view deleted = " (deleted)";
    if (path.ends_with(deleted)) path.remove_suffix(deleted.size());
    return path;
}

std::optional<std::string_view> ProcessFolder::commandName(pid_t process, Buffer& buffer) const
{
    auto name = read(process, "comm", buffer);
    if (name && name->ends_with('\n')) name->remove_suffix(1);
    return name;
}

// Field 22 of proc(5)'s stat; the name before field 3 may hold anything, also parentheses.
std::optional<std::uint64_t> ProcessFolder::startTime(pid_t process) const
{
    Buffer buffer;
    auto text = read(process, "stat", buffer);
    const std::size_t name = text ? text->rfind(") ") : std::string_view::npos;
    if (name == std::string_view::npos) return std::nullopt;
    text->remove_prefix(name + 2);
    for (int field = 3; field < 22; ++field) {
        const std::size_t space = text->find(' ');
        if (space == std::string_view::npos) return std::nullopt;
        text->remove_prefix(space + 1);
    }
    std::uint64_t ticks = 0;
    const auto parsed = std::from_chars(text->data(), text->data() + text->size(), ticks);
    return parsed.ec == std::errc() ? std::optional(ticks) : std::nullopt;
}

bool ProcessFolder::isOwn(pid_t process) const
{
    struct stat status {};
    return ::fstatat(folder_.get(), ProcessFile(process, "").path(), &status, 0) == 0 && status.st_uid == ::geteuid();
}

std::optional<std::string_view> ProcessFolder::read(pid_t process, std::string_view file, Buffer& buffer) const
{
    const FileDescriptor opened(
        ::openat(folder_.get(), ProcessFile(process, file).path(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened) return std::nullopt;
    const ssize_t length = ::read(opened.get(), buffer.data(), buffer.size());
    if (length < 0) return std::nullopt;
    return std::string_view(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace Platform
