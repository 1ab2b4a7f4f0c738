#include <memory>
#include <utility>

#include "benchmarks/notifications/peers/Peer.h"
#include "platform/runtime/RunLoop.h"
#include "platform/session/DistributedNotificationCenter.h"

namespace {

struct Listener {
    Bench::Peer::Handler handler;
    void hear(const Platform::Notification& notification) { handler(notification.object.value_or("")); }
};

class Ours final : public Bench::Peer {
public:
    void listen(const std::string& name, Handler handler) override
    {
        listener_->handler = std::move(handler);
        Platform::DistributedNotificationCenter::shared().addObserver({listener_, &Listener::hear},
                                                                      Platform::NotificationName(name), std::nullopt);
    }
    void post(const std::string& name, const std::string& object) override
    {
        Platform::DistributedNotificationCenter::shared().post(Platform::NotificationName(name), object);
    }
    void run() override { Platform::RunLoop::main().run(); }
    void stop() override { Platform::RunLoop::main().stop(); }

private:
    std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
};

}  // namespace

int main(int argc, char** argv)
{
    Ours ours;
    return Bench::peerMain(argc, argv, ours);
}
