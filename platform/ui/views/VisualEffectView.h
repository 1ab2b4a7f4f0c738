#pragma once

#include "platform/ui/views/View.h"

namespace Platform {

// A view that is filled as the desktop fills a kind of place; of the
// materials only the selection's is drawn, in the accent colour where it is
// emphasized and in grey where not.
class VisualEffectView : public View {
public:
    enum class State { followsWindow = 0, active = 1, inactive = 2 };
    enum class Material { titlebar = 3, selection = 4, menu = 5 };
    enum class BlendingMode { behindWindow = 0, withinWindow = 1 };

    using View::View;

    State state() const { return state_; }
    void setState(State state) { change(state_, state); }
    Material material() const { return material_; }
    void setMaterial(Material material) { change(material_, material); }
    BlendingMode blendingMode() const { return blendingMode_; }
    void setBlendingMode(BlendingMode mode) { change(blendingMode_, mode); }
    bool isEmphasized() const { return isEmphasized_; }
    void setEmphasized(bool emphasized) { change(isEmphasized_, emphasized); }

    void draw(const Rect& dirtyRect) override;

private:
    template <typename T>
    void change(T& field, T value)
    {
        field = value;
        setNeedsDisplay(true);
    }

    State state_ = State::followsWindow;
    Material material_ = Material::titlebar;
    BlendingMode blendingMode_ = BlendingMode::behindWindow;
    bool isEmphasized_ = false;
};

}  // namespace Platform
