#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/FileDescriptor.h"

namespace Platform {

// One inotify descriptor and who listens to what on it. Thread: any; handlers
// run in the thread that dispatches.
class InotifyTable : public std::enable_shared_from_this<InotifyTable> {
public:
    // Fails with the system's reason: the user's or the process's descriptors are used up.
    static Result<std::shared_ptr<InotifyTable>> open();

    int descriptor() const { return notes_.get(); }
    Result<Subscription> watch(int descriptor, FileSystemEvents::Handler handler);
    // Reads one buffer of notes and calls the handlers, without locks.
    void dispatch();

private:
    explicit InotifyTable(FileDescriptor notes) : notes_(std::move(notes)) {}

    struct Listener {
        FileSystemEvents::Handler handler;
        bool isActive = true;  // under the table's mutex
    };
    using Listeners = std::vector<std::shared_ptr<Listener>>;

    void forget(int watch, const std::shared_ptr<Listener>& listener);
    void call(int watch, FileEvents events);
    void callAll(FileEvents events);
    void callEach(const Listeners& listeners, FileEvents events);

    std::mutex mutex_;
    const FileDescriptor notes_;
    std::unordered_map<int, Listeners> listeners_;  // the kernel gives one watch an inode
};

}  // namespace Platform
