#pragma once

#include <functional>
#include <memory>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Subscription.h"
#include "platform/runtime/Url.h"

namespace Fennick {

// Calls back whenever anything happens to one entry of the file system, mostly
// a folder whose list of entries changes. Events that come together, or while a
// call is running, make one call, on a background thread of Queue::global(); calls
// never overlap, and none starts after the observer's end. It stays with the entry that it opened. One that cannot be
// opened or watched is never heard of (the log says why the watch failed).
// Thread: any; not copyable.
class DirectoryObserver {
public:
    DirectoryObserver(const Platform::Url& url, std::function<void()> handler);
    ~DirectoryObserver();

    // -1 where the entry could not be opened.
    int fileDescriptor() const { return fileDescriptor_.get(); }

private:
    struct Delivery;

    Platform::FileDescriptor fileDescriptor_;
    std::shared_ptr<Delivery> delivery_;
    Platform::Subscription source_;  // ends before the descriptor closes
};

}  // namespace Fennick
