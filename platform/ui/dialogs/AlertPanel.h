#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Window.h"
#include "platform/ui/Geometry.h"

namespace Platform {

enum class AlertStyle { warning = 0, informational = 1, critical = 2 };

// One box with a question: a message, an explanation, buttons in the order
// that they stand in, and a one-line text field, without a focus ring, where
// one is wanted.
struct AlertRequest {
    struct TextField {
        std::string text;
        Size size;
    };

    AlertStyle style = AlertStyle::warning;
    std::string message;
    std::string information;
    std::vector<std::string> buttons;
    std::optional<TextField> textField{};
};

struct AlertAnswer {
    static constexpr int firstButton = 1000;
    static constexpr int secondButton = 1001;
    // Closed, ended by its window, or nobody there to ask.
    static constexpr int cancelled = 0;

    // 1000 for the first button, 1001 for the second, ...
    int button = cancelled;
    // What stood in the text field at the end.
    std::string text;
};

// Asks the user. The boxes work by keyboard alone: Return presses the button
// with the focus, at first the first one; Escape cancels. Without a screen
// they are answered as cancelled at once, with a line in the log. Thread: main.
class AlertPanel {
public:
    using Completion = std::function<void(const AlertAnswer&)>;

    static AlertPanel& shared();
    virtual ~AlertPanel() = default;

    // Until the box is answered; the main run loop goes on meanwhile.
    virtual AlertAnswer runModal(const AlertRequest& request) = 0;
    // As a sheet of the window, free-standing without one. The completion is
    // called once, later, also when the window closes or ends first.
    virtual void beginSheet(const WindowRef& window, const AlertRequest& request, Completion completion) = 0;
};

// Whether somebody can answer a dialog. Yes where there is a screen; a test
// that presses the buttons itself says yes without one. Thread: main.
class DialogAudience {
public:
    static DialogAudience& shared();
    virtual ~DialogAudience() = default;
    virtual bool isPresent() const;
};

}  // namespace Platform
