#include "platform/input/internal/XConnection.h"

#include <poll.h>
#include <sys/epoll.h>
#include <xcb/xcbext.h>

#include "platform/input/internal/Xkb.h"
#include "platform/runtime/Queue.h"
#include "platform/runtime/RunLoop.h"

namespace Platform {

namespace {

bool useKeyboardExtension(xcb_connection_t* connection)
{
    const auto cookie = xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const XcbReply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(connection, cookie, nullptr));
    return reply && reply->supported;
}

void selectMapChanges(xcb_connection_t* connection)
{
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t allParts = 0xFF;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, allParts, allParts, nullptr);
}

// A held key repeats its press without releases in between.
void askForPlainRepeats(xcb_connection_t* connection)
{
    constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie = xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    xcb_discard_reply(connection, cookie.sequence);
}

xcb_window_t rootOf(xcb_connection_t* connection, int screen)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screen-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
    return screens.data->root;
}

constexpr std::chrono::seconds patience(2);

// False when nothing came until the deadline.
bool awaitInput(int descriptor, std::chrono::steady_clock::time_point deadline)
{
    pollfd waiting{descriptor, POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return left.count() > 0 && ::poll(&waiting, 1, static_cast<int>(left.count())) != 0;
}

}  // namespace

std::shared_ptr<XConnection> XConnection::open()
{
    const std::shared_ptr<XConnection> connection(new XConnection);
    connection->takeOver(patience);
    return connection->isLost() ? nullptr : connection;
}

// The library's connecting has no deadline, so it happens on a thread that a server which hangs may keep.
XConnection::XConnection()
{
    const auto promise = std::make_shared<std::promise<Session>>();
    joining_ = promise->get_future();
    Queue::global().async([promise] { promise->set_value(join()); });
}

XConnection::Session XConnection::join()
{
    int screen = 0;
    Session session{decltype(Session::connection)(xcb_connect(nullptr, &screen))};
    xcb_connection_t* connection = session.connection.get();
    if (xcb_connection_has_error(connection)) return {};
    const auto* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present || !useKeyboardExtension(connection)) return {};
    session.keyboardEvent = extension->first_event;
    session.root = rootOf(connection, screen);
    selectMapChanges(connection);
    askForPlainRepeats(connection);
    xcb_flush(connection);
    return session;
}

void XConnection::takeOver(std::chrono::seconds longest)
{
    if (!isJoining() || joining_.wait_for(longest) != std::future_status::ready) return;
    session_ = joining_.get();
    if (!listener_.onEvent || !get()) return;
    startWatching();
    tellAnswering();
}

bool XConnection::isMapChange(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7F;
    if (type == XCB_MAPPING_NOTIFY) return true;
    return type == session_.keyboardEvent &&
           (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY);
}

XcbReply<xcb_generic_event_t> XConnection::takeEvent()
{
    return XcbReply<xcb_generic_event_t>(get() ? xcb_poll_for_event(get()) : nullptr);
}

// The server answers in order, so the answer to one more question stands behind all others.
bool XConnection::isAnswered()
{
    takeOver(std::chrono::seconds(0));
    if (isJoining() || isLost()) return false;
    const bool isNew = !lastQuestion_;
    if (isNew) {
        lastQuestion_ = xcb_get_input_focus(get()).sequence;
        xcb_flush(get());
    }
    const auto deadline = std::chrono::steady_clock::now() + (isNew ? patience : std::chrono::seconds(0));
    while (!hasReplyToLastQuestion()) {
        if (!awaitInput(xcb_get_file_descriptor(get()), deadline)) return false;
    }
    if (isNew) return !isLost();
    tellAnswering();
    return isAnswered();
}

bool XConnection::hasReplyToLastQuestion()
{
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (!xcb_poll_for_reply(get(), *lastQuestion_, &reply, &error) && !isLost()) return false;
    const XcbReply<void> ownedReply(reply);
    const XcbReply<xcb_generic_error_t> ownedError(error);
    lastQuestion_.reset();
    return true;
}

void XConnection::startWatching()
{
    watch_ = RunLoop::main().watch(xcb_get_file_descriptor(get()), EPOLLIN, [this](std::uint32_t) { process(); });
}

void XConnection::tellAnswering()
{
    if (const auto answering = listener_.onAnswering) answering();
}

Subscription XConnection::serve(Listener listener)
{
    listener_ = std::move(listener);
    if (get()) startWatching();
    return Subscription([this, self = weak_from_this()] {
        if (self.expired()) return;
        watch_.cancel();
        listener_ = {};
    });
}

void XConnection::deliverSoon()
{
    RunLoop::main().post([weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->process();
    });
}

void XConnection::process()
{
    const auto self = shared_from_this();  // a handler may end it
    while (listener_.onEvent) {
        const auto event = takeEvent();
        if (!event) break;
        const EventHandler handler = listener_.onEvent;
        handler(*event);
    }
    if (isLost()) {
        watch_.cancel();
        if (const auto lost = std::exchange(listener_.onLost, nullptr)) lost();
    } else if (lastQuestion_ && hasReplyToLastQuestion()) {
        tellAnswering();
    }
}

}  // namespace Platform
