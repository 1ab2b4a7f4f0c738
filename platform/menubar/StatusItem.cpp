#include "platform/menubar/StatusItem.h"

#include <algorithm>
#include <cmath>

#include "platform/menubar/StatusBar.h"
#include "platform/menubar/internal/StatusItemPresentation.h"
#include "platform/ui/Image.h"

namespace Platform {

namespace {

constexpr std::string_view visiblePath = "isVisible";
constexpr std::string_view appearancePath = "button.effectiveAppearance";

// How far the views reach: by their frames, or by what they ask for where
// constraints will place them.
double extentOf(const std::vector<ViewRef>& views)
{
    double extent = 0;
    for (const ViewRef& view : views) {
        const bool keepsFrame = view->translatesAutoresizingMaskIntoConstraints();
        extent = std::max(extent, keepsFrame ? view->frame().maxX() : view->intrinsicContentSize().width);
    }
    return extent;
}

}  // namespace

struct StatusItem::Observation {
    std::string keyPath;
    unsigned options = 0;
    Observer observer;
    bool isActive = true;

    void tell(const KeyValue& oldValue, const KeyValue& newValue) const
    {
        KeyValueChange change;
        if (options & KeyValueOptions::oldValue) change.oldValue = oldValue;
        if (options & KeyValueOptions::newValue) change.newValue = newValue;
        observer(keyPath, change);
    }
};

Size StatusBarButton::intrinsicContentSize() const
{
    if (length_ >= 0) return {length_, StatusBar::thickness};
    const bool isBare = title().empty() && image() && imagePosition() != ImagePosition::noImage;
    const double content = isBare ? std::ceil(image()->size().width) : Button::intrinsicContentSize().width;
    const double width = std::max(content, extentOf(subviews()));
    const bool isSquare = length_ == StatusItem::squareLength || width <= 0;
    return {isSquare ? StatusBar::thickness : width, StatusBar::thickness};
}

void StatusBarButton::setLength(double length)
{
    length_ = length;
    setNeedsLayout(true);
}

StatusItem::~StatusItem()
{
    if (presentation_) presentation_->end();
    button_->setDisplayObserver(nullptr);
}

void StatusItem::start(double length)
{
    button_->setLength(length);
    appearance_ = button_->effectiveAppearance();
    appearanceObserver_ = button_->observeEffectiveAppearance([this] { appearanceMayHaveChanged(); });
    presentation_ = StatusItemPresentation::create(*this);
    button_->setDisplayObserver([this] { changed(); });
}

void StatusItem::changed() const
{
    if (presentation_) presentation_->itemChanged();
}

void StatusItem::setMenu(const MenuRef& menu)
{
    if (menu_ == menu) return;
    menu_ = menu;
    if (presentation_) presentation_->menuChanged();
    changed();
}

void StatusItem::openMenu(std::function<void()> otherwise)
{
    if (menu_ && presentation_) presentation_->openMenu(std::move(otherwise));
}

void StatusItem::setVisible(bool visible)
{
    const bool former = std::exchange(isVisible_, visible);
    if (former == visible) return;
    changed();
    tell(visiblePath, former, visible);
}

void StatusItem::setToolTip(std::string text)
{
    toolTip_ = std::move(text);
    changed();
}

void StatusItem::setAccessibilityText(std::string text)
{
    accessibilityText_ = std::move(text);
    changed();
}

Subscription StatusItem::observe(std::string_view keyPath, unsigned options, Observer observer)
{
    const auto kept = std::make_shared<Observation>(Observation{std::string(keyPath), options, std::move(observer)});
    observations_.push_back(kept);
    if (options & KeyValueOptions::initial) {
        KeyValueChange change;
        const bool wantsNew = options & KeyValueOptions::newValue;
        if (wantsNew && keyPath == visiblePath) change.newValue = isVisible_;
        if (wantsNew && keyPath == appearancePath) change.newValue = *appearance_;
        kept->observer(keyPath, change);
    }
    return Subscription([weak = weak_from_this(), kept] {
        kept->isActive = false;
        if (const auto self = weak.lock()) std::erase(self->observations_, kept);
    });
}

// The observers may end each other, and the item.
void StatusItem::tell(std::string_view keyPath, const KeyValue& oldValue, const KeyValue& newValue)
{
    const auto observations = observations_;
    for (const auto& observation : observations) {
        if (observation->isActive && observation->keyPath == keyPath) observation->tell(oldValue, newValue);
    }
}

void StatusItem::appearanceMayHaveChanged()
{
    const auto self = weak_from_this().lock();
    const Appearance present = button_->effectiveAppearance();
    if (!self || present == *appearance_) return;
    const Appearance former = std::exchange(*appearance_, present);
    tell(appearancePath, former, present);
}

void StatusItem::click()
{
    if (!menu_) button_->performClick();
}

void StatusItem::middleClick()
{
    if (const auto handler = middleClickHandler_) handler();
}

void StatusItem::scroll(int delta, bool isHorizontal) const
{
    if (const auto handler = scrollHandler_) handler(delta, isHorizontal);
}

}  // namespace Platform
