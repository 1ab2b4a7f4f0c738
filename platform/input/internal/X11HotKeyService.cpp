#include "platform/input/internal/X11HotKeyService.h"

#include "platform/input/ModifierFlags.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/RunLoop.h"

namespace Platform {

std::unique_ptr<X11HotKeyService> X11HotKeyService::open()
{
    auto connection = XConnection::open();
    if (!connection) return nullptr;
    return std::unique_ptr<X11HotKeyService>(new X11HotKeyService(std::move(connection)));
}

X11HotKeyService::X11HotKeyService(std::shared_ptr<XConnection> connection)
    : connection_(std::move(connection)), grabs_(connection_)
{
    renew();
    events_ = connection_->serve(
        {[this](const xcb_generic_event_t& event) { handle(event); }, [this] { renewSoon(); }, [this] { lost(); }});
}

HotKeyRegistration X11HotKeyService::registerKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyId id)
{
    const KeyCombination combination{keyCode, modifiers & HotKeyMask::all};
    if (!isReady()) return {HotKeyStatuses::unsupported, std::nullopt};
    const auto key = map_.key(combination);
    if (!key) return {HotKeyStatuses::hotKeyInvalid, std::nullopt};
    const auto holder = combinations_.find(*key);
    if (holder != combinations_.end() && holder->second != combination) {
        return {HotKeyStatuses::hotKeyExists, std::nullopt};
    }
    const bool isGranted = grabs_.add(map_.withLocks(*key));
    connection_->deliverSoon();
    if (!isGranted && !connection_->isAnswered()) return {HotKeyStatuses::unsupported, std::nullopt};
    if (!isGranted) return {HotKeyStatuses::hotKeyExists, std::nullopt};
    combinations_[*key] = combination;
    return {HotKeyStatuses::noError, table_->add(combination, id)};
}

HotKeyStatus X11HotKeyService::unregisterKey(HotKeyHandle handle)
{
    if (!table_->remove(handle)) return HotKeyStatuses::hotKeyInvalid;
    dropUnused();
    claim();
    connection_->deliverSoon();
    return connection_->isLost() ? HotKeyStatuses::unsupported : HotKeyStatuses::noError;
}

std::optional<HotKeyEventHandlerHandle> X11HotKeyService::installEventHandler(HotKeyEventHandler handler)
{
    return table_->install(std::move(handler));
}

void X11HotKeyService::handle(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7F;
    if (type == XCB_KEY_PRESS) {
        handlePress(reinterpret_cast<const xcb_key_press_event_t&>(event));
    } else if (type == XCB_KEY_RELEASE) {
        handleRelease(reinterpret_cast<const xcb_key_release_event_t&>(event));
    } else if (connection_->isMapChange(event)) {
        renewSoon();
    }
}

void X11HotKeyService::handlePress(const xcb_key_press_event_t& event)
{
    const auto found = combinations_.find({event.detail, map_.withoutLocks(event.state)});
    if (found == combinations_.end()) return;
    pressed_[event.detail] = found->second.keyCode;
    const auto table = table_;
    table->press(KeyCombination(found->second));
}

// By key alone: modifiers may have come up first, and the map may have changed.
void X11HotKeyService::handleRelease(const xcb_key_release_event_t& event)
{
    const auto found = pressed_.find(event.detail);
    if (found == pressed_.end()) return;
    const std::uint32_t keyCode = found->second;
    pressed_.erase(found);
    const auto table = table_;
    table->release(keyCode);
}

// The server answers, and its map is the one that we go by.
bool X11HotKeyService::isReady()
{
    if (!connection_->isAnswered()) return false;
    if (!isMapCurrent_) renew();
    return isMapCurrent_;
}

// A new layout announces itself by many events; one turn later all have come.
void X11HotKeyService::renewSoon()
{
    isMapCurrent_ = false;
    if (isRenewing_) return;
    isRenewing_ = std::make_shared<bool>(true);
    RunLoop::main().post([this, alive = std::weak_ptr(isRenewing_)] {
        if (alive.expired()) return;
        isRenewing_ = nullptr;
        renew();
    });
}

// The new grabs first, so that no press between them is lost. Without an answer
// all stays as it is, and the server's next one brings us here again.
void X11HotKeyService::renew()
{
    auto map = XKeyMap::read(*connection_);
    if (!map) return;
    map_ = *std::move(map);
    isMapCurrent_ = true;
    combinations_.clear();
    claim();
    dropUnused();
    connection_->deliverSoon();
}

// What another program holds is tried again with the next map. What this map
// does not tell from an earlier one of ours waits until that is let go.
void X11HotKeyService::claim()
{
    for (const KeyCombination& combination : table_->combinations()) {
        const auto key = map_.key(combination);
        if (!key || !combinations_.emplace(*key, combination).second) continue;
        if (!grabs_.add(map_.withLocks(*key)) && connection_->isAnswered())
            log("a hot key is held by another program under the new keyboard map");
    }
}

void X11HotKeyService::dropUnused()
{
    std::erase_if(combinations_, [this](const auto& entry) { return !table_->holds(entry.second); });
    std::set<XKey> used;
    for (const auto& [key, combination] : combinations_) {
        for (const XKey& grabbed : map_.withLocks(key)) used.insert(grabbed);
    }
    grabs_.keepOnly(used);
}

void X11HotKeyService::lost()
{
    log("the X server is gone, hot keys are off");
    pressed_.clear();
    table_->forgetPresses();
}

}  // namespace Platform
