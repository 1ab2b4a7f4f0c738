#include "platform/files/MetadataDates.h"

#include <memory>
#include <mutex>

#include <glib.h>

#include "platform/files/FileManager.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

// Desktops keep some thousand entries; what is far larger is not their list.
constexpr std::uint64_t largestList = 64 << 20;

struct BookmarkFileFree {
    void operator()(GBookmarkFile* file) const { g_bookmark_file_free(file); }
};
using BookmarkFile = std::unique_ptr<GBookmarkFile, BookmarkFileFree>;

BookmarkFile parsed(const std::string& path)
{
    BookmarkFile list(g_bookmark_file_new());
    GError* failure = nullptr;
    if (g_bookmark_file_load_from_file(list.get(), path.c_str(), &failure)) return list;
    log("Recently used files: " + path + ": " + failure->message);
    g_error_free(failure);
    return nullptr;
}

// The list as last read; read again when the file is another one.
class RecentFiles {
public:
    static RecentFiles& shared()
    {
        return Shared<RecentFiles>::get([] { return std::make_unique<RecentFiles>(); });
    }

    std::optional<Date> visited(const std::string& path)
    {
        std::lock_guard lock(mutex_);
        refresh();
        if (!list_) return std::nullopt;
        const std::unique_ptr<char, decltype(&g_free)> uri(g_filename_to_uri(path.c_str(), nullptr, nullptr), &g_free);
        if (!uri || !g_bookmark_file_has_item(list_.get(), uri.get())) return std::nullopt;
        GDateTime* date = g_bookmark_file_get_visited_date_time(list_.get(), uri.get(), nullptr);
        if (!date) return std::nullopt;
        return Date(static_cast<double>(g_date_time_to_unix(date)) + g_date_time_get_microsecond(date) / 1e6);
    }

private:
    void refresh()
    {
        // The attributes of a link would not tell that the list behind it has changed.
        const std::string path =
            Url::fromPath(Environment::shared().dataHome() + "/recently-used.xbel").resolvingSymlinksInPath().path();
        const auto now = FileManager::shared().attributes(path);
        if (!now || now->type != EntryType::regular || now->size > largestList) {
            list_.reset();
            known_.reset();
            return;
        }
        const bool isSame = known_ && known_->inode == now->inode && known_->modified == now->modified &&
                            known_->size == now->size && path == path_;
        if (isSame) return;
        list_ = parsed(path);
        known_ = *now;
        path_ = path;
    }

    std::mutex mutex_;
    BookmarkFile list_;
    std::string path_;
    std::optional<FileAttributes> known_;
};

}  // namespace

std::optional<Date> lastUsedDate(const std::string& path)
{
    return RecentFiles::shared().visited(path);
}

}  // namespace Platform
