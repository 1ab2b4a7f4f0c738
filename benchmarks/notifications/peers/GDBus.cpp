#include <utility>

#include <gio/gio.h>

#include "benchmarks/notifications/peers/Peer.h"

namespace {

class GDBus final : public Bench::Peer {
public:
    void listen(const std::string& name, Handler handler) override
    {
        handler_ = std::move(handler);
        g_dbus_connection_signal_subscribe(bus_, nullptr, Bench::interface, Bench::member, nullptr, name.c_str(),
                                           G_DBUS_SIGNAL_FLAGS_NONE, onSignal, this, nullptr);
        // Any answer of the daemon comes after its consent to the rule.
        g_variant_unref(g_dbus_connection_call_sync(bus_, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId",
                                                    nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    }
    void post(const std::string& name, const std::string& object) override
    {
        g_dbus_connection_emit_signal(bus_, nullptr, Bench::path, Bench::interface, Bench::member,
                                      g_variant_new("(ss)", name.c_str(), object.c_str()), nullptr);
        g_dbus_connection_flush_sync(bus_, nullptr, nullptr);
    }
    void run() override { g_main_loop_run(loop_); }
    void stop() override { g_main_loop_quit(loop_); }

private:
    static void onSignal(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
                         gpointer self)
    {
        const char* name = nullptr;
        const char* object = nullptr;
        g_variant_get(arguments, "(&s&s)", &name, &object);
        static_cast<GDBus*>(self)->handler_(object);
    }

    GDBusConnection* bus_ = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    GMainLoop* loop_ = g_main_loop_new(nullptr, false);
    Handler handler_;
};

}  // namespace

int main(int argc, char** argv)
{
    GDBus bus;
    return Bench::peerMain(argc, argv, bus);
}
