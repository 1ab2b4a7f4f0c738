#include "Lorrel/menubar/MenuBarHostView.h"

#include "Lorrel/menubar/internal/PinEdges.h"
#include "platform/menubar/MenuItem.h"

namespace Lorrel {

using Platform::VisualEffectView;

namespace {

constexpr double firstCornerRadius = 3.0;

}  // namespace

std::shared_ptr<MenuBarHostView> MenuBarHostView::create(const Platform::Rect& frame)
{
    const std::shared_ptr<MenuBarHostView> self(new MenuBarHostView(frame));
    self->setUp();
    return self;
}

std::shared_ptr<MenuBarHostView> MenuBarHostView::create(const Platform::PropertyList::Dictionary& archive)
{
    const std::shared_ptr<MenuBarHostView> self(new MenuBarHostView(archive));
    self->setUp();
    return self;
}

void MenuBarHostView::setUp()
{
    effectView_ = std::make_shared<VisualEffectView>();
    effectView_->setState(VisualEffectView::State::active);
    effectView_->setMaterial(VisualEffectView::Material::selection);
    effectView_->setEmphasized(isEmphasized_);
    effectView_->setBlendingMode(VisualEffectView::BlendingMode::behindWindow);
    effectView_->setWantsLayer(true);
    effectView_->layer()->setMasksToBounds(true);
    effectView_->layer()->setCornerRadius(firstCornerRadius);
    addSubview(effectView_, Platform::ViewPosition::below, nullptr);
    pinEdges(effectView_, shared_from_this());
}

void MenuBarHostView::setIsEmphasized(bool isEmphasized)
{
    isEmphasized_ = isEmphasized;
    setNeedsDisplay(true);
}

void MenuBarHostView::setCornerRadius(double radius)
{
    cornerRadius_ = radius;
    if (effectView_ && effectView_->layer()) effectView_->layer()->setCornerRadius(radius);
}

void MenuBarHostView::draw(const Platform::Rect&)
{
    if (!effectView_) return;
    const auto item = enclosingMenuItem();
    effectView_->setHidden(!item || !item->isHighlighted());
}

}  // namespace Lorrel
