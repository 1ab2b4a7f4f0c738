#pragma once

#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Lorrel/hotkeys/IHotkeyController.h"

namespace Lorrel {

// Registers shortcuts and calls the delegate and the lists of handlers. While
// it has registrations the process's table keeps it alive, so letting go of it
// unregisters nothing. Handlers may change the lists, and unregister, while
// they are called. Main thread.
class HotkeyController : public IHotkeyController, public std::enable_shared_from_this<HotkeyController> {
public:
    using Shortcuts = std::unordered_set<Hotkey>;
    using Handlers = std::unordered_map<Hotkey, std::vector<std::function<void()>>>;

    static std::shared_ptr<HotkeyController> create();

    // What was passed to registration and not unregistered since, accepted or not.
    virtual const Shortcuts& registeredShortcuts() const { return registeredShortcuts_; }
    virtual Shortcuts& registeredShortcuts() { return registeredShortcuts_; }
    virtual void setRegisteredShortcuts(Shortcuts shortcuts) { registeredShortcuts_ = std::move(shortcuts); }

    // Called in the list's order.
    virtual const Handlers& keyDownHandlers() const { return keyDownHandlers_; }
    virtual Handlers& keyDownHandlers() { return keyDownHandlers_; }
    virtual void setKeyDownHandlers(Handlers handlers) { keyDownHandlers_ = std::move(handlers); }
    virtual const Handlers& keyUpHandlers() const { return keyUpHandlers_; }
    virtual Handlers& keyUpHandlers() { return keyUpHandlers_; }
    virtual void setKeyUpHandlers(Handlers handlers) { keyUpHandlers_ = std::move(handlers); }

    std::shared_ptr<HotkeyDelegate> delegate() const override { return delegate_; }
    virtual std::shared_ptr<HotkeyDelegate>& delegate() { return delegate_; }
    void setDelegate(std::shared_ptr<HotkeyDelegate> delegate) override { delegate_ = std::move(delegate); }

    // Nothing for an equal value that is among the registered ones.
    void register_(const Hotkey& shortcut) override;
    // The handlers stay.
    void unregister(const Hotkey& shortcut) override;
    void unregisterAll() override;
    // Ends the system's registrations, but the shortcuts stay among the registered ones.
    virtual void removeAllHandlers();

    // The delegate first, then the handlers.
    virtual void handleKeyDown(const Hotkey& shortcut);
    void handleKeyUp(const Hotkey& shortcut);

protected:
    // For subclasses, which are made by std::make_shared too.
    HotkeyController() = default;

private:
    Shortcuts registeredShortcuts_;
    Handlers keyDownHandlers_;
    Handlers keyUpHandlers_;
    std::shared_ptr<HotkeyDelegate> delegate_;
};

}  // namespace Lorrel
