#pragma once

#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
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
// costs two seconds while it is joined, two more when it is first asked, and
// later calls nothing; once it answers, the connection goes on. Thread: main.
class XConnection : public std::enable_shared_from_this<XConnection> {
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    // Null when there is no display, or its server lacks the extension.
    static std::shared_ptr<XConnection> open();

    // Null, as long as nothing was answered.
    xcb_connection_t* get() const { return session_.connection.get(); }
    xcb_window_t root() const { return session_.root; }
    bool isLost() const { return !isJoining() && (!get() || xcb_connection_has_error(get()) != 0); }
    // All that was asked so far is done and its replies are here, to be taken without waiting. False when the server is
    // gone or does not answer; nothing must be sent or waited for then.
    bool isAnswered();
    // The event says that keys or modifiers may have moved.
    bool isMapChange(const xcb_generic_event_t& event) const;
    // What has arrived, without waiting; null when nothing has.
    XcbReply<xcb_generic_event_t> takeEvent();

    struct Listener {
        EventHandler onEvent;
        std::function<void()> onAnswering;  // again or at last, after it did not; also from inside isAnswered
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

    // Without a connection where there is none to be had.
    struct Session {
        std::unique_ptr<xcb_connection_t, Closer> connection;
        xcb_window_t root = 0;
        std::uint8_t keyboardEvent = 0;
    };

    XConnection();
    static Session join();
    bool isJoining() const { return joining_.valid(); }
    void takeOver(std::chrono::seconds longest);
    bool hasReplyToLastQuestion();
    void startWatching();
    void tellAnswering();
    void process();

    std::future<Session> joining_;  // until it is taken over
    Session session_;
    std::optional<unsigned> lastQuestion_;  // by sequence number, while there is no answer
    Listener listener_;
    Subscription watch_;
};

}  // namespace Platform
