#include "Fennick/disk/DirectoryObserver.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "platform/files/FileHandle.h"
#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Queue.h"

namespace Fennick {

// At most one call runs and one waits behind it, whatever happens meanwhile.
struct DirectoryObserver::Delivery {
    std::function<void()> handler;
    std::atomic<bool> isCancelled = false;
    std::atomic<bool> isWaiting = false;
    std::mutex running;

    void call()
    {
        std::lock_guard lock(running);
        isWaiting = false;
        if (!isCancelled) handler();
    }
};

DirectoryObserver::DirectoryObserver(const Platform::Url& url, std::function<void()> handler)
    : fileDescriptor_(Platform::openForEvents(url)), delivery_(std::make_shared<Delivery>())
{
    if (!fileDescriptor_) return;
    delivery_->handler = std::move(handler);
    const auto deliver = [delivery = delivery_](Platform::FileEvents) {
        if (!delivery->isWaiting.exchange(true)) Platform::Queue::global().async([delivery] { delivery->call(); });
    };
    auto source = Platform::FileSystemEvents::background().watch(fileDescriptor_.get(), deliver);
    if (source) {
        source_ = std::move(source).value();
    } else {
        Platform::log("Directory observer: " + source.error().message());
    }
}

DirectoryObserver::~DirectoryObserver()
{
    delivery_->isCancelled = true;
}

}  // namespace Fennick
