#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/input/ModifierFlags.h"
#include "platform/runtime/Image.h"
#include "platform/ui/views/Action.h"
#include "platform/ui/views/View.h"

namespace Platform {

class Menu;
class MenuItem;
using MenuRef = std::shared_ptr<Menu>;
using MenuItemRef = std::shared_ptr<MenuItem>;

enum class MenuItemState { mixed = -1, off = 0, on = 1 };

// A line of a menu. Every change reaches those who show the menu. A reference
// type; the target is held weakly. Thread: main.
class MenuItem : public ActionSender, public std::enable_shared_from_this<MenuItem> {
public:
    static MenuItemRef create(std::string title, Action action = {}, std::string keyEquivalent = {});
    static MenuItemRef separator();

    bool isSeparator() const { return isSeparator_; }
    const std::string& title() const { return title_; }
    void setTitle(std::string title) { change(title_, std::move(title)); }
    bool isEnabled() const { return isEnabled_; }
    void setEnabled(bool enabled) { change(isEnabled_, enabled); }
    bool isHidden() const { return isHidden_; }
    void setHidden(bool hidden) { change(isHidden_, hidden); }
    // A tick, or a dash for mixed.
    MenuItemState state() const { return state_; }
    void setState(MenuItemState state) { change(state_, state); }
    const ImageRef& image() const { return image_; }
    // The same image is drawn anew.
    void setImage(ImageRef image);

    // One character; those of function keys are U+F704 and following.
    const std::string& keyEquivalent() const { return keyEquivalent_; }
    void setKeyEquivalent(std::string text) { change(keyEquivalent_, std::move(text)); }
    ModifierFlags keyEquivalentModifierMask() const { return modifiers_; }
    void setKeyEquivalentModifierMask(ModifierFlags modifiers) { change(modifiers_, modifiers); }

    std::shared_ptr<Responder> target() const { return target_.lock(); }
    void setTarget(const std::shared_ptr<Responder>& target) { target_ = target; }
    const Action& action() const { return action_; }
    void setAction(Action action) { action_ = std::move(action); }
    long tag() const override { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    // As choosing it does. Nothing while it is disabled, or without target and action.
    void performAction();

    // Null outside a menu.
    MenuRef menu() const { return menu_.lock(); }
    const MenuRef& submenu() const { return submenu_; }
    // The menu leaves the item that it hung below. Not one that the item itself lies in, however deep.
    void setSubmenu(const MenuRef& submenu);
    // Shown in place of title and image. A view leaves the item that it was in.
    const ViewRef& view() const { return view_; }
    void setView(const ViewRef& view);
    // The pointer, or the keyboard, is on it.
    bool isHighlighted() const { return isHighlighted_; }

    ~MenuItem() override;

private:
    friend class Menu;
    MenuItem() = default;
    void changed();
    void setHighlighted(bool highlighted);
    template <typename T>
    void change(T& field, T value)
    {
        if (field == value) return;
        field = std::move(value);
        changed();
    }

    std::string title_;
    std::string keyEquivalent_;
    // Command is what shortcuts of menus begin with.
    ModifierFlags modifiers_ = ModifierFlags::command;
    MenuItemState state_ = MenuItemState::off;
    bool isSeparator_ = false;
    bool isEnabled_ = true;
    bool isHidden_ = false;
    bool isHighlighted_ = false;
    ImageRef image_;
    std::weak_ptr<Responder> target_;
    Action action_;
    long tag_ = 0;
    std::weak_ptr<Menu> menu_;
    MenuRef submenu_;
    ViewRef view_;
};

}  // namespace Platform
