#include "platform/bundle/internal/FolderChanges.h"

#include <memory>

#include <sys/inotify.h>
#include <unistd.h>

#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

constexpr std::uint32_t watchedEvents = IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_FROM | IN_MOVED_TO |
                                        IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

}  // namespace

FolderChanges& FolderChanges::shared()
{
    return Shared<FolderChanges>::get([] { return std::make_unique<FolderChanges>(); });
}

FolderChanges::FolderChanges() : notes_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

std::uint64_t FolderChanges::generation(const std::string& folder)
{
    std::lock_guard lock(mutex_);
    readEvents();
    Folder& state = folders_[folder];
    if (state.watch < 0) {
        state.watch = ::inotify_add_watch(notes_.get(), folder.c_str(), watchedEvents);
        state.generation = ++last_;
    }
    return state.generation;
}

void FolderChanges::readEvents()
{
    alignas(inotify_event) char buffer[16384];
    ssize_t filled;
    while ((filled = ::read(notes_.get(), buffer, sizeof buffer)) > 0) {
        for (const char* at = buffer; at < buffer + filled;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            at += sizeof *event + event->len;
            noteEvent(event->wd, event->mask);
        }
    }
}

void FolderChanges::noteEvent(int watch, std::uint32_t events)
{
    for (auto& [path, folder] : folders_) {
        // An overflow names no watch: anything may have happened anywhere.
        if (folder.watch != watch && !(events & IN_Q_OVERFLOW)) continue;
        folder.generation = ++last_;
        if (events & IN_IGNORED) folder.watch = -1;
        // The path may lead elsewhere now: look it up anew.
        if (events & IN_MOVE_SELF) ::inotify_rm_watch(notes_.get(), watch);
    }
}

}  // namespace Platform
