#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/files/FileManager.h"
#include "platform/files/internal/DirectoryReader.h"
#include "platform/runtime/SystemPath.h"

namespace Platform {

namespace {

constexpr std::size_t longestRelativePath = 2048;
// Below so many folders a second thread costs more than it saves.
constexpr std::size_t foldersWorthAThread = 4;

using Anchor = std::shared_ptr<const FileDescriptor>;

// A folder still to be read: its path from an open one.
struct PendingFolder {
    Anchor anchor;
    std::string relative;
};

// Sparse files may claim more together than a number holds.
std::uint64_t sumOf(std::uint64_t a, std::uint64_t b)
{
    return a + b < a ? std::numeric_limits<std::uint64_t>::max() : a + b;
}

std::uint64_t sizeOf(int folder, const RawEntry& entry, bool& isDirectory)
{
    struct statx status {};
    const unsigned wanted = STATX_SIZE | STATX_TYPE;
    if (::statx(folder, entry.name, AT_SYMLINK_NOFOLLOW, wanted, &status) != 0) return 0;
    isDirectory = S_ISDIR(status.stx_mode);
    return isDirectory ? 0 : status.stx_size;
}

// The folders of one walk, shared by its threads.
class PendingFolders {
public:
    // Takes the next folder; waits while another thread may still add some.
    // Absent once all are done.
    std::optional<PendingFolder> take()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return !folders_.empty() || busy_ == 0; });
        if (folders_.empty()) return std::nullopt;
        PendingFolder next = std::move(folders_.back());
        folders_.pop_back();
        ++busy_;
        return next;
    }

    // Ends the work on a taken folder, adding the ones found in it. How many are now waiting.
    std::size_t finish(std::vector<PendingFolder>& found)
    {
        std::size_t waiting;
        bool isOver;
        {
            std::lock_guard lock(mutex_);
            for (auto& folder : found) folders_.push_back(std::move(folder));
            --busy_;
            waiting = folders_.size();
            isOver = waiting == 0 && busy_ == 0;
        }
        if (isOver || found.size() > 1) changed_.notify_all();
        found.clear();
        return waiting;
    }

    void start(PendingFolder folder) { folders_.push_back(std::move(folder)); }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<PendingFolder> folders_;
    int busy_ = 0;
};

class SizeWalk {
public:
    std::uint64_t run(const std::string& folder)
    {
        auto root = std::make_shared<FileDescriptor>(openFolder(AT_FDCWD, systemPath(folder), true));
        if (!root->isOpen()) return 0;
        pending_.start({std::move(root), "."});
        const std::uint64_t own = work(true);
        if (helper_.joinable()) helper_.join();
        return sumOf(own, helpersSum_);
    }

private:
    std::uint64_t work(bool mayCallHelper)
    {
        const auto block = std::make_unique<char[]>(entryBlockSize);
        std::vector<PendingFolder> found;
        std::uint64_t sum = 0;
        while (const auto folder = pending_.take()) {
            sum = sumOf(sum, sizeOfEntries(*folder, block.get(), found));
            const std::size_t waiting = pending_.finish(found);
            if (mayCallHelper && waiting >= foldersWorthAThread && !helper_.joinable()) callHelper();
        }
        return sum;
    }

    void callHelper()
    {
        try {
            helper_ = std::thread([this] { helpersSum_ = work(false); });
        } catch (const std::system_error&) {
            // No thread to be had: the caller's own does the work.
        }
    }

    static std::uint64_t sizeOfEntries(const PendingFolder& pending, char* block, std::vector<PendingFolder>& found)
    {
        auto folder = std::make_shared<FileDescriptor>(
            openFolder(pending.anchor->get(), pending.relative.c_str(), pending.relative == "."));
        if (!folder->isOpen()) return 0;
        const bool isNewAnchor = pending.relative.size() > longestRelativePath;
        std::uint64_t sum = 0;
        const auto add = [&](const RawEntry& entry) {
            bool isDirectory = entry.type == DT_DIR;
            if (!isDirectory) sum = sumOf(sum, sizeOf(folder->get(), entry, isDirectory));
            if (!isDirectory) return;
            if (isNewAnchor) {
                found.push_back({folder, entry.name});
            } else {
                found.push_back({pending.anchor, pending.relative + "/" + entry.name});
            }
        };
        long filled;
        while ((filled = readEntryBlock(folder->get(), block)) > 0) forEachEntry(block, filled, add);
        return sum;
    }

    PendingFolders pending_;
    std::thread helper_;
    std::uint64_t helpersSum_ = 0;
};

}  // namespace

std::uint64_t totalFileSize(const std::string& folder)
{
    return SizeWalk().run(folder);
}

}  // namespace Platform
