#pragma once

#include <map>
#include <memory>

#include "platform/input/HotKeyTable.h"
#include "platform/input/internal/XKeyGrabs.h"

namespace Platform {

// Hot keys of an X display, by passive grabs on its root window: by position
// of the key, for every state of the locking modifiers, made anew when the
// keyboard's map changes.
class X11HotKeyService final : public HotKeyService {
public:
    // Null without a display.
    static std::unique_ptr<X11HotKeyService> open();

    HotKeyRegistration registerKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyId id) override;
    HotKeyStatus unregisterKey(HotKeyHandle handle) override;
    std::optional<HotKeyEventHandlerHandle> installEventHandler(HotKeyEventHandler handler) override;

private:
    explicit X11HotKeyService(std::shared_ptr<XConnection> connection);
    void handle(const xcb_generic_event_t& event);
    void handlePress(const xcb_key_press_event_t& event);
    void handleRelease(const xcb_key_release_event_t& event);
    bool isReady();
    void renewSoon();
    void renew();
    void claim();
    void dropUnused();
    void lost();

    std::shared_ptr<XConnection> connection_;
    XKeyMap map_;
    bool isMapCurrent_ = false;
    XKeyGrabs grabs_;
    std::shared_ptr<HotKeyTable> table_ = std::make_shared<HotKeyTable>();  // outlives a handler that ends the service
    std::map<XKey, KeyCombination> combinations_;
    std::map<xcb_keycode_t, std::uint32_t> pressed_;
    std::shared_ptr<bool> isRenewing_;
    Subscription events_;
};

}  // namespace Platform
