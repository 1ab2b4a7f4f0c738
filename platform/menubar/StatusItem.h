#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/menubar/Menu.h"
#include "platform/runtime/Subscription.h"
#include "platform/ui/views/Button.h"

namespace Platform {

class StatusItem;
class StatusItemPresentation;
using StatusItemRef = std::shared_ptr<StatusItem>;

// Which values an observer is told, as a bit set; initial calls it at once.
namespace KeyValueOptions {
inline constexpr unsigned newValue = 1, oldValue = 2, initial = 4;
}

// A value of one of the observed paths.
using KeyValue = std::variant<bool, Appearance>;

struct KeyValueChange {
    std::optional<KeyValue> oldValue;
    std::optional<KeyValue> newValue;
};

// The button of a status item. Its size is that of the content, or of the
// views in it, unless length or constraints say otherwise; as high as the bar.
class StatusBarButton final : public Button {
public:
    using Button::Button;
    Size intrinsicContentSize() const override;
    // The item's length.
    void setLength(double length);
    double length() const { return length_; }

private:
    double length_ = -1;
};

// One place in the status bar: a button, perhaps with a menu. It stays there
// until its last owner lets go, or the bar removes it; without a bar on the
// desktop it works all the same, unseen. Thread: main.
class StatusItem : public std::enable_shared_from_this<StatusItem> {
public:
    static constexpr double variableLength = -1;
    static constexpr double squareLength = -2;

    ~StatusItem();
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    const std::shared_ptr<StatusBarButton>& button() const { return button_; }
    double length() const { return button_->length(); }
    void setLength(double length) { button_->setLength(length); }
    // With a menu a click opens it, and the button's action is not called.
    const MenuRef& menu() const { return menu_; }
    void setMenu(const MenuRef& menu);
    // Asks the desktop to open the menu, as for a hotkey. Most tray hosts do not
    // listen: the block is called later, once, when none has begun to open it
    // within a quarter of a second, or at once when none shows the item; not
    // without a menu, nor off the bar, nor when this is asked again before.
    void openMenu(std::function<void()> otherwise = {});
    bool isVisible() const { return isVisible_; }
    void setVisible(bool visible);

    // Shown with the pointer on it.
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text);
    // What is read out in place of the picture; the button's title where it is empty.
    const std::string& accessibilityText() const { return accessibilityText_; }
    void setAccessibilityText(std::string text);

    // Positive is up, or left.
    using ScrollHandler = std::function<void(int delta, bool isHorizontal)>;
    void setScrollHandler(ScrollHandler handler) { scrollHandler_ = std::move(handler); }
    void setMiddleClickHandler(std::function<void()> handler) { middleClickHandler_ = std::move(handler); }

    using Observer = std::function<void(std::string_view keyPath, const KeyValueChange& change)>;
    // Told of each change of "isVisible" or "button.effectiveAppearance";
    // another path never changes.
    Subscription observe(std::string_view keyPath, unsigned options, Observer observer);

    // What the bar does with clicks and the wheel.
    void click();
    void middleClick();
    void scroll(int delta, bool isHorizontal) const;

private:
    friend class StatusBar;
    friend class StatusItemPresentation;
    struct Observation;

    StatusItem() = default;
    void start(double length);
    void tell(std::string_view keyPath, const KeyValue& oldValue, const KeyValue& newValue);
    void appearanceMayHaveChanged();
    void changed() const;

    std::shared_ptr<StatusBarButton> button_ = std::make_shared<StatusBarButton>();
    MenuRef menu_;
    bool isVisible_ = true;
    std::string toolTip_;
    std::string accessibilityText_;
    ScrollHandler scrollHandler_;
    std::function<void()> middleClickHandler_;
    std::vector<std::shared_ptr<Observation>> observations_;
    std::optional<Appearance> appearance_;
    Subscription appearanceObserver_;
    std::shared_ptr<StatusItemPresentation> presentation_;
};

}  // namespace Platform
