#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/ui/Color.h"
#include "platform/ui/Geometry.h"
#include "platform/ui/GraphicsContext.h"

namespace Platform {

class Layer;
using LayerRef = std::shared_ptr<Layer>;

// A rectangle that is drawn: background, contents, then its sublayers, first
// to last, inside its rounded corners where it masks. Thread: main, or any
// one while it belongs to no view.
class Layer {
public:
    // Where it lies in its superlayer.
    Rect frame() const { return frame_; }
    void setFrame(const Rect& frame) { frame_ = frame; }

    std::optional<Color> backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(std::optional<Color> color) { backgroundColor_ = std::move(color); }
    // Of the background, and of what is masked.
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius) { cornerRadius_ = radius; }
    // Nothing of contents and sublayers shows outside the corners.
    bool masksToBounds() const { return masksToBounds_; }
    void setMasksToBounds(bool masks) { masksToBounds_ = masks; }
    double opacity() const { return opacity_; }
    void setOpacity(double opacity) { opacity_ = opacity; }
    bool isHidden() const { return isHidden_; }
    void setHidden(bool hidden) { isHidden_ = hidden; }

    // Stretched over the whole layer.
    const ImageRef& contents() const { return contents_; }
    void setContents(ImageRef contents) { contents_ = std::move(contents); }
    // Draws above the contents, in the layer's own points.
    void setDrawing(std::function<void(GraphicsContext&, Size)> drawing) { drawing_ = std::move(drawing); }

    const std::vector<LayerRef>& sublayers() const { return sublayers_; }
    // Nothing happens where that would close a circle.
    void addSublayer(LayerRef layer);
    void removeSublayer(const LayerRef& layer);

    // Draws it with its own top left corner at the context's origin, hidden or not.
    void render(GraphicsContext& context) const;

private:
    bool contains(const Layer& other) const;
    void renderContent(GraphicsContext& context) const;

    Rect frame_;
    std::optional<Color> backgroundColor_;
    double cornerRadius_ = 0;
    double opacity_ = 1;
    bool masksToBounds_ = false;
    bool isHidden_ = false;
    ImageRef contents_;
    std::function<void(GraphicsContext&, Size)> drawing_;
    std::vector<LayerRef> sublayers_;
};

}  // namespace Platform
