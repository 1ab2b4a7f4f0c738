#include "platform/ui/views/VisualEffectView.h"

#include "platform/ui/GraphicsContext.h"

namespace Platform {

void VisualEffectView::draw(const Rect&)
{
    GraphicsContext* context = GraphicsContext::current();
    if (!context || material_ != Material::selection || state_ == State::inactive) return;
    context->setFillColor(isEmphasized_ ? Color::controlAccentColor() : Color::labelColor().withAlpha(0.15));
    context->fill(bounds(), CompositingOperation::sourceOver);
}

}  // namespace Platform
