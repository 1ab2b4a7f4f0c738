#include "platform/files/FileSystemEvents.h"

#include <cerrno>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "platform/files/internal/InotifyTable.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Shared.h"

namespace Platform {

namespace {

class LoopEvents final : public FileSystemEvents {
public:
    Result<Subscription> watch(int descriptor, Handler handler) override
    {
        if (!table_) {
            auto table = InotifyTable::open();
            if (!table) return table.error();
            table_ = *table;
            readable_ = RunLoop::main().watch(table_->descriptor(), EPOLLIN,
                                              [table = table_](std::uint32_t) { table->dispatch(); });
        }
        return table_->watch(descriptor, std::move(handler));
    }

private:
    std::shared_ptr<InotifyTable> table_;
    Subscription readable_;
};

// Its thread starts with the first watch.
class BackgroundEvents final : public FileSystemEvents {
public:
    ~BackgroundEvents() override
    {
        if (!thread_.joinable()) return;
        const std::uint64_t one = 1;
        [[maybe_unused]] auto written = ::write(end_.get(), &one, sizeof one);
        thread_.join();
    }

    Result<Subscription> watch(int descriptor, Handler handler) override
    {
        std::lock_guard lock(mutex_);
        if (!thread_.joinable()) {
            if (const auto started = start(); !started) return started.error();
        }
        return table_->watch(descriptor, std::move(handler));
    }

private:
    // What fails leaves nothing behind: the next watch tries again.
    Result<void> start()
    {
        auto table = InotifyTable::open();
        if (!table) return table.error();
        end_ = FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
        if (!end_) return Error::fromErrno("eventfd", "", errno);
        table_ = *table;
        try {
            thread_ = std::thread([this] { dispatchUntilEnd(); });
        } catch (const std::system_error& failure) {
            return Error::fromErrno("pthread_create", "", failure.code().value());
        }
        return {};
    }

    void dispatchUntilEnd()
    {
        pollfd waited[] = {{table_->descriptor(), POLLIN, 0}, {end_.get(), POLLIN, 0}};
        while (waited[1].revents == 0) {
            ::poll(waited, 2, -1);
            if (waited[0].revents != 0) table_->dispatch();
        }
    }

    std::shared_ptr<InotifyTable> table_;
    FileDescriptor end_;
    std::mutex mutex_;
    std::thread thread_;
};

}  // namespace

FileSystemEvents& FileSystemEvents::shared()
{
    return Shared<FileSystemEvents>::get([] { return std::make_unique<LoopEvents>(); });
}

FileSystemEvents& FileSystemEvents::background()
{
    return Shared<BackgroundEvents>::get([] { return std::make_unique<BackgroundEvents>(); });
}

}  // namespace Platform
