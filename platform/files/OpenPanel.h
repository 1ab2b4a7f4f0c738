#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/runtime/Url.h"
#include "platform/runtime/Window.h"

namespace Platform {

// What an open panel offers.
struct OpenPanelRequest {
    std::optional<Url> directory;  // where it starts; absent: where it likes
    bool allowsMultipleSelection = false;
    bool canChooseDirectories = true;
    bool canChooseFiles = false;
    bool canCreateDirectories = false;
    std::string prompt;  // the confirm button's text; empty: the usual one
};

// How a panel ended.
struct OpenPanelAnswer {
    static constexpr int ok = 1;

    int response = 0;
    std::optional<Url> url;        // what was chosen
    std::optional<Url> directory;  // the folder that the panel showed at that moment
};

// Lets the user choose files and folders. Without a drawing room every panel
// ends at once as cancelled. Thread: main; answers arrive there, never from
// within beginSheet itself.
class OpenPanel {
public:
    using Completion = std::function<void(const OpenPanelAnswer&)>;

    static OpenPanel& shared();
    virtual ~OpenPanel() = default;

    // Shows a panel as a sheet of the window, or free-standing without one.
    virtual void beginSheet(const WindowRef& window, const OpenPanelRequest& request, Completion completion) = 0;
};

}  // namespace Platform
