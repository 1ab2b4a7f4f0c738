#include "platform/bundle/internal/DefaultsFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/bundle/internal/DefaultsLock.h"
#include "platform/bundle/internal/FolderChanges.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/FileBytes.h"
#include "platform/runtime/Log.h"

namespace Platform {

namespace {

// What PropertyList::parse reads back.
constexpr std::size_t largestFile = 32 << 20;

Result<std::string> contentOf(int file, const std::string& path)
{
    struct stat status {};
    if (::fstat(file, &status) != 0) return Error::fromErrno("fstat", path, errno);
    if (!S_ISREG(status.st_mode)) return Error::fromErrno("read", path, EINVAL);
    // One byte too many is enough to be refused, however large the file claims to be.
    std::string content(std::min(static_cast<std::size_t>(status.st_size), largestFile + 1), '\0');
    for (std::size_t filled = 0; filled < content.size();) {
        const ssize_t count = ::pread(file, &content[filled], content.size() - filled, static_cast<off_t>(filled));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Error::fromErrno("read", path, errno);
        if (count == 0) content.resize(filled);
        filled += static_cast<std::size_t>(count);
    }
    return content;
}

void apply(const DefaultsChanges& changes, PropertyList::Dictionary& values)
{
    for (const auto& [key, value] : changes) {
        if (value) {
            values.set(key, *value);
        } else {
            values.remove(key);
        }
    }
}

// A suite's file may be a link that the user has put there; what it leads to is the file.
std::string resolved(const std::string& path)
{
    std::error_code failure;
    const auto real = std::filesystem::canonical(path, failure);
    return failure ? path : real.string();
}

}  // namespace

DefaultsFile::DefaultsFile(std::string path) : path_(resolved(path)), folder_(path_.substr(0, path_.rfind('/'))) {}

const PropertyList::Dictionary& DefaultsFile::values()
{
    const std::uint64_t generation = FolderChanges::shared().generation(folder_);
    if (generation == generation_) return values_;
    generation_ = generation;
    if (identity_ && identityNow() == identity_) return values_;
    if (const auto loaded = load(); !loaded) log("User defaults: " + loaded.error().message());
    return values_;
}

Result<void> DefaultsFile::save(const DefaultsChanges& changes)
{
    std::error_code failure;
    std::filesystem::create_directories(folder_, failure);
    if (failure) return Error::fromErrno("mkdir", folder_, failure.value());
    const auto lock = DefaultsLock::take(sibling("lock"));
    if (!lock) return lock.error();
    if (!identity_ || identityNow() != identity_) {
        if (auto loaded = loadLocked(); !loaded) return loaded;
    }
    PropertyList::Dictionary values = values_;
    apply(changes, values);
    const auto content = PropertyList(values).binary();
    if (!content) return content.error();
    if (content->size() > largestFile) return Error::fromErrno("write", path_, EFBIG);
    if (auto replaced = replace(*content); !replaced) return replaced;
    values_ = std::move(values);
    return {};
}

DefaultsFile::Identity DefaultsFile::identityOf(int file)
{
    struct stat status {};
    if (::fstat(file, &status) != 0) return {};
    const std::int64_t modified = status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec;
    return {status.st_dev, status.st_ino, status.st_size, modified};
}

std::optional<DefaultsFile::Identity> DefaultsFile::identityNow() const
{
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0) return std::nullopt;
    const std::int64_t modified = status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec;
    return Identity{status.st_dev, status.st_ino, status.st_size, modified};
}

// Reads without the lock: a whole file is there at every instant. Only where it
// turns out to be damaged is the lock taken, to look again and put it aside.
Result<void> DefaultsFile::load()
{
    FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (auto taken = take(std::move(file)); taken || !isDamaged_) return taken;
    const auto lock = DefaultsLock::take(sibling("lock"));
    if (!lock) return lock.error();
    return loadLocked();
}

Result<void> DefaultsFile::loadLocked()
{
    FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (auto taken = take(std::move(file)); taken || !isDamaged_) return taken;
    return keepAside();
}

// Makes an opened file (or, from one that did not open, errno's reason) the current state.
Result<void> DefaultsFile::take(FileDescriptor file)
{
    const int reason = file ? 0 : errno;
    identity_.reset();
    values_ = {};
    isDamaged_ = false;
    open_ = std::move(file);
    if (!open_) return reason == ENOENT ? Result<void>() : Error::fromErrno("open", path_, reason);
    const Identity identity = identityOf(open_.get());
    const auto content = contentOf(open_.get(), path_);
    if (!content) return content.error();
    auto list = PropertyList::parse(*content);
    isDamaged_ = !list || !list->dictionary();
    if (!list) return list.error();
    if (isDamaged_) return Error{"read", path_, 0, "not a dictionary"};
    values_ = std::move(*list->dictionary());
    identity_ = identity;
    return {};
}

Result<void> DefaultsFile::keepAside()
{
    char time[32];
    std::snprintf(time, sizeof time, ".corrupt-%.6f", Date::now().timeIntervalSince1970());
    const std::string kept = path_ + time;
    if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, kept.c_str(), RENAME_NOREPLACE) != 0) {
        return Error::fromErrno("rename", path_, errno);
    }
    log("User defaults: " + path_ + " is damaged and was kept as " + kept);
    isDamaged_ = false;
    open_.reset();
    return {};
}

Result<void> DefaultsFile::replace(const std::string& content)
{
    auto written = writeTemporary(content);
    if (!written) return written.error();
    const std::string temporary = sibling("new");
    if (::rename(temporary.c_str(), path_.c_str()) != 0) {
        const Error error = Error::fromErrno("rename", path_, errno);
        ::unlink(temporary.c_str());
        return error;
    }
    const FileDescriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ::fsync(folder.get());
    open_ = std::move(*written);
    identity_ = identityOf(open_.get());
    return {};
}

// One name is enough: only the holder of the lock writes it, and one that a
// crash left behind is overwritten.
Result<FileDescriptor> DefaultsFile::writeTemporary(const std::string& content)
{
    const std::string temporary = sibling("new");
    constexpr int flags = O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW;
    FileDescriptor file(::open(temporary.c_str(), flags, 0600));
    if (!file) return Error::fromErrno("open", temporary, errno);
    if (writeFileBytes(file.get(), content)) return file;
    const Error error = Error::fromErrno("write", temporary, errno);
    ::unlink(temporary.c_str());
    return error;
}

std::string DefaultsFile::sibling(std::string_view ending) const
{
    return folder_ + "/." + path_.substr(folder_.size() + 1) + "." + std::string(ending);
}

}  // namespace Platform
