#pragma once

#include "platform/runtime/Window.h"
#include "platform/ui/views/View.h"

namespace Platform {

// What a storyboard makes: something that keeps a part of the interface.
class Controller {
public:
    virtual ~Controller() = default;
};

// Keeps a view, which is made when it is first asked for.
class ViewController : public Controller {
public:
    const ViewRef& view()
    {
        if (!view_) view_ = loadView();
        return view_;
    }
    void setView(ViewRef view) { view_ = std::move(view); }

protected:
    virtual ViewRef loadView() { return std::make_shared<View>(); }

private:
    ViewRef view_;
};

// Keeps a window.
class WindowController : public Controller {
public:
    const WindowRef& window() const { return window_; }
    void setWindow(WindowRef window) { window_ = std::move(window); }

private:
    WindowRef window_;
};

}  // namespace Platform
