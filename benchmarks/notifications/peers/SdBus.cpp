#include <systemd/sd-bus.h>

#ifdef WITH_PLIST
#include <plist/plist.h>
#endif

#include <utility>

#include "benchmarks/notifications/peers/Peer.h"

namespace {

class SdBus final : public Bench::Peer {
public:
    SdBus() { sd_bus_open_user(&bus_); }
    ~SdBus() override { sd_bus_flush_close_unref(bus_); }

    void listen(const std::string& name, Handler handler) override
    {
        handler_ = std::move(handler);
        const std::string rule = std::string("type='signal',interface='") + Bench::interface + "',member='" +
                                 Bench::member + "',arg0='" + name + "'";
        sd_bus_add_match(bus_, nullptr, rule.c_str(), onSignal, this);
    }
    void post(const std::string& name, const std::string& object) override
    {
        sd_bus_emit_signal(bus_, Bench::path, Bench::interface, Bench::member, "ss", name.c_str(), object.c_str());
        sd_bus_flush(bus_);
    }
    void run() override
    {
        while (!isStopped_) {
            if (sd_bus_process(bus_, nullptr) == 0) sd_bus_wait(bus_, UINT64_MAX);
        }
    }
    void stop() override { isStopped_ = true; }

private:
    static int onSignal(sd_bus_message* message, void* self, sd_bus_error*)
    {
        const char* name = nullptr;
        const char* object = nullptr;
        if (sd_bus_message_read(message, "ss", &name, &object) > 0) static_cast<SdBus*>(self)->handler_(object);
        return 0;
    }

    sd_bus* bus_ = nullptr;
    bool isStopped_ = false;
    Handler handler_;
};

}  // namespace

int main(int argc, char** argv)
{
#ifdef WITH_PLIST
    plist_free(plist_new_dict());
#endif
    SdBus bus;
    return Bench::peerMain(argc, argv, bus);
}
