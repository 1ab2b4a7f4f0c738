#include "Fennick/disk/DirectoryObserver.h"

#include <atomic>
#include <utility>

#include "platform/files/FileHandle.h"
#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Queue.h"

namespace Fennick {

// At most one call runs and one waits behind it, whatever happens meanwhile. The
// queue's blocks run on the threads of the global one.
struct DirectoryObserver::Delivery {
    std::function<void()> handler;
    std::atomic<bool> isCancelled = false;
    std::atomic<bool> isWaiting = false;
    const std::shared_ptr<Platform::Queue> calls =
        Platform::Queue::create("directory observer", Platform::Queue::Kind::serial);

    void call()
    {
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
        if (!delivery->isWaiting.exchange(true)) delivery->calls->async([delivery] { delivery->call(); });
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
