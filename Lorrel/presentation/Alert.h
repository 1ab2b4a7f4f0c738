#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/runtime/Window.h"

namespace Lorrel {

// Ready-made boxes with localised buttons. Where nobody can answer, each counts
// as cancelled at once. Thread: main.
class Alert {
public:
    Alert() = delete;

    // A yes/no question; waits for the answer. True only for "yes".
    static bool confirm(const std::string& message, const std::string& information);
    // The same as a sheet of the window (free-standing without one). Called
    // once, later: false also when the window closes first.
    static void confirm(const Platform::WindowRef& window, const std::string& message, const std::string& information,
                        std::function<void(bool)> completion);
    // Asks for a line of text; waits for the answer, then calls with the text as
    // it stood and whether it was confirmed.
    static void askForText(const std::string& message, const std::string& information,
                           const std::optional<std::string>& defaultText,
                           const std::function<void(const std::string&, bool)>& completion);
};

}  // namespace Lorrel
