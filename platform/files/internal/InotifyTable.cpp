#include "platform/files/internal/InotifyTable.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform {

namespace {

constexpr std::uint32_t fileNotes = IN_MODIFY | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t entryNotes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t folderNotes = entryNotes | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

FileEvents eventsOf(const inotify_event& note)
{
    const auto if_ = [&](std::uint32_t mask, FileEvents events) {
        return note.mask & mask ? events : FileEvents::none;
    };
    const FileEvents entries = if_(entryNotes, FileEvents::written);
    // With a name it is a note about an entry of the folder, not about the folder.
    if (note.len > 0) return entries;
    return entries | if_(IN_MODIFY, FileEvents::written) | if_(IN_ATTRIB, FileEvents::attributes) |
           if_(IN_DELETE_SELF | IN_UNMOUNT, FileEvents::removed) | if_(IN_MOVE_SELF, FileEvents::renamed);
}

bool isFolder(int descriptor)
{
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

Result<std::shared_ptr<InotifyTable>> InotifyTable::open()
{
    FileDescriptor notes(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!notes) return Error::fromErrno("inotify_init1", "", errno);
    return std::shared_ptr<InotifyTable>(new InotifyTable(std::move(notes)));
}

Result<Subscription> InotifyTable::watch(int descriptor, FileSystemEvents::Handler handler)
{
    // The link leads to the open entry itself, whatever its name is by now.
    const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
    auto listener = std::make_shared<Listener>(Listener{std::move(handler)});
    std::lock_guard lock(mutex_);
    const int watch = ::inotify_add_watch(notes_.get(), path.c_str(), isFolder(descriptor) ? folderNotes : fileNotes);
    if (watch < 0) return Error::fromErrno("inotify_add_watch", path, errno);
    listeners_[watch].push_back(listener);
    return Subscription([table = weak_from_this(), watch, listener] {
        if (const auto self = table.lock()) self->forget(watch, listener);
    });
}

void InotifyTable::forget(int watch, const std::shared_ptr<Listener>& listener)
{
    std::lock_guard lock(mutex_);
    listener->isActive = false;
    const auto found = listeners_.find(watch);
    if (found == listeners_.end()) return;
    std::erase(found->second, listener);
    if (!found->second.empty()) return;
    listeners_.erase(found);
    ::inotify_rm_watch(notes_.get(), watch);
}

void InotifyTable::dispatch()
{
    alignas(inotify_event) char buffer[16384];
    const ssize_t filled = ::read(notes_.get(), buffer, sizeof buffer);
    std::vector<std::pair<int, FileEvents>> deliveries;
    bool isLost = false;
    for (ssize_t at = 0; at < filled;) {
        const auto& note = *reinterpret_cast<const inotify_event*>(buffer + at);
        at += static_cast<ssize_t>(sizeof note + note.len);
        isLost |= (note.mask & IN_Q_OVERFLOW) != 0;
        const FileEvents events = eventsOf(note);
        if (events == FileEvents::none) continue;
        const auto same = std::find_if(deliveries.begin(), deliveries.end(),
                                       [&](const auto& delivery) { return delivery.first == note.wd; });
        if (same == deliveries.end()) {
            deliveries.emplace_back(note.wd, events);
        } else {
            same->second = same->second | events;
        }
    }
    for (const auto& [watch, events] : deliveries) call(watch, events);
    if (isLost) callAll(FileEvents::lost);
}

void InotifyTable::call(int watch, FileEvents events)
{
    Listeners listeners;
    {
        std::lock_guard lock(mutex_);
        const auto found = listeners_.find(watch);
        if (found == listeners_.end()) return;
        listeners = found->second;
    }
    callEach(listeners, events);
}

void InotifyTable::callAll(FileEvents events)
{
    Listeners listeners;
    {
        std::lock_guard lock(mutex_);
        for (const auto& [watch, some] : listeners_) listeners.insert(listeners.end(), some.begin(), some.end());
    }
    callEach(listeners, events);
}

void InotifyTable::callEach(const Listeners& listeners, FileEvents events)
{
    for (const auto& listener : listeners) {
        {
            std::lock_guard lock(mutex_);
            if (!listener->isActive) continue;
        }
        listener->handler(events);
    }
}

}  // namespace Platform
