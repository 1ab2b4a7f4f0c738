#include "platform/ui/Layer.h"

#include <algorithm>

#include "platform/ui/Image.h"

namespace Platform {

void Layer::addSublayer(LayerRef layer)
{
    if (layer && !layer->contains(*this)) sublayers_.push_back(std::move(layer));
}

bool Layer::contains(const Layer& other) const
{
    return this == &other ||
           std::ranges::any_of(sublayers_, [&](const LayerRef& layer) { return layer->contains(other); });
}

// A copy: the argument may be an element of the list.
void Layer::removeSublayer(const LayerRef& layer)
{
    const LayerRef removed = layer;
    std::erase(sublayers_, removed);
}

void Layer::render(GraphicsContext& context) const
{
    context.saveState();
    context.multiplyOpacity(opacity_);
    const Rect bounds{{}, frame_.size};
    const BezierPath outline = BezierPath::roundedRect(bounds, cornerRadius_, cornerRadius_);
    if (backgroundColor_) {
        context.setFillColor(*backgroundColor_);
        context.fill(outline);
    }
    if (masksToBounds_) context.clip(outline);
    renderContent(context);
    context.restoreState();
}

void Layer::renderContent(GraphicsContext& context) const
{
    GraphicsContext::Current scope(&context);
    if (contents_) contents_->draw({{}, frame_.size}, {}, CompositingOperation::sourceOver, 1);
    if (drawing_) {
        context.saveState();
        drawing_(context, frame_.size);
        context.restoreState();
    }
    for (const LayerRef& layer : sublayers_) {
        if (layer->isHidden_) continue;
        context.saveState();
        context.translate(layer->frame_.origin.x, layer->frame_.origin.y);
        layer->render(context);
        context.restoreState();
    }
}

}  // namespace Platform
