#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace Platform {

// What the hot-key service answers: 0, or why not.
using HotKeyStatus = std::int32_t;

namespace HotKeyStatuses {
inline constexpr HotKeyStatus noError = 0;
inline constexpr HotKeyStatus unsupported = -4;               // the keyboard's server is gone or does not answer
inline constexpr HotKeyStatus eventNotHandled = -9874;        // the handler leaves the event to others
inline constexpr HotKeyStatus eventParameterMissing = -9870;  // the event carries no identifier
inline constexpr HotKeyStatus hotKeyExists =
    -9878;  // taken by another program, or by another of ours that looks the same
inline constexpr HotKeyStatus hotKeyInvalid = -9879;  // no such key or modifier on this keyboard, or no such handle
}  // namespace HotKeyStatuses

// Chosen by who registers; comes back with every event.
struct HotKeyId {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;
    friend bool operator==(const HotKeyId&, const HotKeyId&) = default;
};

namespace HotKeyEventKind {
inline constexpr std::uint32_t pressed = 5, released = 6;
}

struct HotKeyEvent {
    HotKeyStatus idStatus = HotKeyStatuses::noError;  // with an error the identifier could not be read
    HotKeyId id;
    std::uint32_t kind = 0;
};

// A registration, until it is unregistered. Never 0.
using HotKeyHandle = std::uint64_t;
using HotKeyEventHandlerHandle = std::uint64_t;
// Answers whether it took the event (noError). There may be no event.
using HotKeyEventHandler = std::function<HotKeyStatus(const HotKeyEvent*)>;

struct HotKeyRegistration {
    HotKeyStatus status = HotKeyStatuses::noError;
    std::optional<HotKeyHandle> handle;  // when the session agreed
};

// Claims key combinations of the whole desktop session for this process. One
// combination may be claimed twice by the same process; both hear of it. A key
// that is held down is one press. Caps Lock, Num Lock and Scroll Lock make no
// difference. Thread: main; events arrive through the main run loop.
class HotKeyService {
public:
    // That of the X display; one inside the process where there is no display.
    static HotKeyService& shared();
    virtual ~HotKeyService() = default;

    // A virtual key code (a position on an ANSI keyboard) and bits of HotKeyMask; other bits do not count.
    virtual HotKeyRegistration registerKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyId id) = 0;
    virtual HotKeyStatus unregisterKey(HotKeyHandle handle) = 0;
    // The handlers are asked one after another until one takes the event, the last one installed first.
    virtual std::optional<HotKeyEventHandlerHandle> installEventHandler(HotKeyEventHandler handler) = 0;
};

}  // namespace Platform
