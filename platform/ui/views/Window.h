#pragma once

#include <string>

#include "platform/runtime/Window.h"
#include "platform/ui/views/View.h"

namespace Platform {

// A window of the desktop with a tree of views in it. It stays until its last
// owner lets go; closing only takes it off the screen and ends its sheets as
// cancelled. Thread: main.
class Window : public std::enable_shared_from_this<Window> {
public:
    // Not on the screen yet. The size is that of its content.
    static WindowRef create(Size size, const std::string& title);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void show();
    void close();
    bool isVisible() const;

    // Its frame follows the window's size.
    const ViewRef& contentView() const { return contentView_; }
    void setContentView(const ViewRef& view);
    // Its own where set, else the desktop's.
    Appearance effectiveAppearance() const;
    void setAppearance(std::optional<Appearance> appearance);

private:
    friend struct WindowAccess;
    struct Surface;
    Window();

    std::unique_ptr<Surface> surface_;
    ViewRef contentView_;
    std::optional<Appearance> appearance_;
    Subscription desktopObserver_;
};

}  // namespace Platform
