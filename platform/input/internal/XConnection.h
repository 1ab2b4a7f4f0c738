#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

#include "platform/runtime/Subscription.h"

namespace Platform {

struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};
// A reply, an event or an error that the library allocated.
template <typename T>
using XcbReply = std::unique_ptr<T, XcbFree>;

// A connection to the X server of DISPLAY with the keyboard extension. Asks to
// hear of every change of the keyboard's map. A server that does not answer
// costs the first call two seconds, further ones nothing. Thread: main.
class XConnection : public std::enable_shared_from_this<XConnection> {
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    // Null when there is no display, or its server lacks the extension or does not answer.
    static std::shared_ptr<XConnection> open();

    xcb_connection_t* get() const { return connection_.get(); }
    xcb_window_t root() const { return root_; }
    bool isLost() const { return xcb_connection_has_error(connection_.get()) != 0; }
    // All that was asked so far is done and its replies are here, to be taken without waiting. False when the server is
    // gone or does not answer; no reply must be waited for then.
    bool isAnswered();
    // The event says that keys or modifiers may have moved.
    bool isMapChange(const xcb_generic_event_t& event) const;
    // What has arrived, without waiting; null when nothing has.
    XcbReply<xcb_generic_event_t> takeEvent() { return XcbReply<xcb_generic_event_t>(xcb_poll_for_event(get())); }

    struct Listener {
        EventHandler onEvent;
        std::function<void()> onAnswering;  // again, after it did not
        std::function<void()> onLost;       // once
    };
    // Hands over what happens, from the main loop, until the server is gone.
    Subscription serve(Listener listener);
    // Has events that came along with a reply handed over in the loop's next turn.
    void deliverSoon();

private:
    struct Closer {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    explicit XConnection(xcb_connection_t* connection) : connection_(connection) {}
    static std::shared_ptr<XConnection> connect();
    bool setUp(int screen);
    bool hasReplyToLastQuestion();
    void process();

    std::unique_ptr<xcb_connection_t, Closer> connection_;
    xcb_window_t root_ = 0;
    std::uint8_t keyboardEvent_ = 0;
    std::optional<unsigned> lastQuestion_;  // by sequence number, while there is no answer
    Listener listener_;
    Subscription watch_;
};

}  // namespace Platform
