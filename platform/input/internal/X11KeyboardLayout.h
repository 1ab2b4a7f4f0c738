#pragma once

#include <memory>

#include "platform/input/KeyboardLayout.h"

namespace Platform {

// The layouts of an X display.
class X11KeyboardLayout final : public KeyboardLayout {
public:
    // Null without a display.
    static std::unique_ptr<X11KeyboardLayout> open();
    ~X11KeyboardLayout() override;

    std::optional<std::string> character(std::uint16_t keyCode) const override;

private:
    struct State;
    explicit X11KeyboardLayout(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace Platform
