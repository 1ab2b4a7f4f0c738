#include "platform/input/internal/X11KeyboardLayout.h"

#include <xkbcommon/xkbcommon-x11.h>

#include "platform/input/KeyPositions.h"
#include "platform/input/internal/DeadKeys.h"
#include "platform/input/internal/XConnection.h"
#include "platform/input/internal/Xkb.h"

namespace Platform {

namespace {

struct XkbUnref {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
};
using XkbContext = std::unique_ptr<xkb_context, XkbUnref>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbUnref>;

std::string textOf(xkb_keymap* keymap, xkb_keycode_t code, xkb_layout_index_t layout)
{
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(keymap, code, layout, 0, &symbols) != 1) return {};
    char text[8] = {};
    const int size = xkb_keysym_to_utf8(symbols[0], text, sizeof text);
    return size > 1 ? std::string(text) : deadKeyText(symbols[0]);
}

bool writesAsciiLetters(xkb_keymap* keymap, xkb_layout_index_t layout)
{
    const std::string text = textOf(keymap, xkb_keymap_key_by_name(keymap, "AC01"), layout);
    return text.size() == 1 && text[0] >= 'a' && text[0] <= 'z';
}

}  // namespace

struct X11KeyboardLayout::State {
    std::shared_ptr<XConnection> connection;
    XkbContext context{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    XkbKeymap keymap;
    bool isExtensionReady = false;

    std::optional<xkb_layout_index_t> activeLayout() const;
    std::optional<xkb_layout_index_t> asciiLayout();
    void refresh();
};

// A round trip: what had changed before has been told when the answer is here.
std::optional<xkb_layout_index_t> X11KeyboardLayout::State::activeLayout() const
{
    if (!connection->isAnswered()) return std::nullopt;
    const auto cookie = xcb_xkb_get_state(connection->get(), XCB_XKB_ID_USE_CORE_KBD);
    if (!connection->isAnswered()) {
        xcb_discard_reply(connection->get(), cookie.sequence);
        return std::nullopt;
    }
    const XcbReply<xcb_xkb_get_state_reply_t> reply(xcb_xkb_get_state_reply(connection->get(), cookie, nullptr));
    if (!reply) return std::nullopt;
    return reply->group;
}

void X11KeyboardLayout::State::refresh()
{
    while (const auto event = connection->takeEvent()) {
        if (connection->isMapChange(*event)) keymap = nullptr;
    }
    if (keymap) return;
    isExtensionReady =
        isExtensionReady ||
        xkb_x11_setup_xkb_extension(connection->get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                    XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) == 1;
    if (!isExtensionReady) return;
    const int keyboard = xkb_x11_get_core_keyboard_device_id(connection->get());
    if (keyboard < 0) return;
    keymap.reset(
        xkb_x11_keymap_new_from_device(context.get(), connection->get(), keyboard, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::optional<xkb_layout_index_t> X11KeyboardLayout::State::asciiLayout()
{
    const auto active = activeLayout();
    if (!active) return std::nullopt;
    refresh();
    if (!keymap) return std::nullopt;
    if (writesAsciiLetters(keymap.get(), *active)) return active;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(keymap.get()); ++layout) {
        if (writesAsciiLetters(keymap.get(), layout)) return layout;
    }
    return std::nullopt;
}

X11KeyboardLayout::X11KeyboardLayout(std::unique_ptr<State> state) : state_(std::move(state)) {}
X11KeyboardLayout::~X11KeyboardLayout() = default;

std::unique_ptr<X11KeyboardLayout> X11KeyboardLayout::open()
{
    auto state = std::make_unique<State>();
    state->connection = XConnection::open();
    if (!state->connection || !state->context) return nullptr;
    return std::unique_ptr<X11KeyboardLayout>(new X11KeyboardLayout(std::move(state)));
}

std::optional<std::string> X11KeyboardLayout::character(std::uint16_t keyCode) const
{
    const auto name = keyPositionName(keyCode);
    if (!name) return std::nullopt;
    const auto layout = state_->asciiLayout();
    if (!layout) return AnsiKeyboardLayout().character(keyCode);
    const xkb_keycode_t code = xkb_keymap_key_by_name(state_->keymap.get(), std::string(*name).c_str());
    if (code == XKB_KEYCODE_INVALID) return std::nullopt;
    return textOf(state_->keymap.get(), code, *layout);
}

}  // namespace Platform
