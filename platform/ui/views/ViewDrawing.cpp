#include "platform/ui/DesktopAppearance.h"
#include "platform/ui/Image.h"
#include "platform/ui/views/View.h"
#include "platform/ui/views/Window.h"

namespace Platform {

void View::draw(const Rect&) {}

void View::render(GraphicsContext& context)
{
    layoutSubtreeIfNeeded();
    const Appearance::Drawing look(effectiveAppearance());
    const GraphicsContext::Current scope(&context);
    context.saveState();
    if (layer_) {
        layer_->render(context);
        context.multiplyOpacity(layer_->opacity());
        if (layer_->masksToBounds()) {
            context.clip(BezierPath::roundedRect(bounds(), layer_->cornerRadius(), layer_->cornerRadius()));
        }
    }
    context.saveState();
    draw(bounds());
    context.restoreState();
    needsDisplay_ = false;
    for (const ViewRef& view : std::vector(subviews_)) {
        if (view->isHidden_) continue;
        context.saveState();
        context.translate(view->frame_.origin.x, view->frame_.origin.y);
        view->render(context);
        context.restoreState();
    }
    context.restoreState();
}

ImageRef View::rendered()
{
    layoutSubtreeIfNeeded();
    auto image = std::make_shared<Image>(frame_.size);
    ImageFocus focus(image);
    if (auto* context = focus.context()) render(*context);
    return image;
}

void View::setAppearance(std::optional<Appearance> appearance)
{
    if (appearance == appearance_) return;
    appearance_ = std::move(appearance);
    appearanceMayHaveChanged();
}

Appearance View::effectiveAppearance() const
{
    if (appearance_) return *appearance_;
    if (const ViewRef parent = superview()) return parent->effectiveAppearance();
    if (const WindowRef window = window_.lock()) return window->effectiveAppearance();
    return DesktopAppearance::shared().appearance();
}

Subscription View::observeEffectiveAppearance(std::function<void()> observer)
{
    if (!desktopObserver_.isActive()) {
        desktopObserver_ = DesktopAppearance::shared().observe([weak = weak_from_this()] {
            if (const ViewRef self = weak.lock()) self->appearanceMayHaveChanged();
        });
    }
    const int number = nextObserver_++;
    appearanceObservers_.emplace_back(number, std::move(observer));
    return Subscription([weak = weak_from_this(), number] {
        const ViewRef self = weak.lock();
        if (self)
            std::erase_if(self->appearanceObservers_, [number](const auto& each) { return each.first == number; });
    });
}

// The observers may change the tree and themselves.
void View::appearanceMayHaveChanged()
{
    setNeedsDisplay(true);
    viewDidChangeEffectiveAppearance();
    for (const auto& [number, observer] : Observers(appearanceObservers_)) observer();
    for (const ViewRef& view : std::vector(subviews_)) {
        if (!view->appearance_) view->appearanceMayHaveChanged();
    }
}

void View::setWindow(const WindowRef& window)
{
    window_ = window;
    appearanceMayHaveChanged();
}

WindowRef View::window() const
{
    return root().window_.lock();
}

}  // namespace Platform
