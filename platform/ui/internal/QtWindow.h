#pragma once

#include <QWidget>

#include "platform/ui/views/Window.h"

namespace Platform {

// The application object of programs with windows; made before the first one.
void ensureWidgetApplication();

// What the dialogs' files may reach of a window.
struct WindowAccess {
    // Null for no window. The window keeps it.
    static QWidget* widget(const WindowRef& window);
};

}  // namespace Platform
