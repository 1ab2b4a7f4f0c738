#pragma once

#include <memory>

#include "platform/ui/views/VisualEffectView.h"

namespace Lorrel {

// Hosts content of the application's own in an item of a menu: behind it the
// desktop's selection shows while that item is highlighted, and never outside
// a menu. Main thread.
class MenuBarHostView : public Platform::View {
public:
    static std::shared_ptr<MenuBarHostView> create(const Platform::Rect& frame);
    static std::shared_ptr<MenuBarHostView> create(const Platform::PropertyList::Dictionary& archive);

    // Draws the selection.
    const std::shared_ptr<Platform::VisualEffectView>& effectView() const { return effectView_; }
    // The selection of a menu that has the keyboard.
    bool isEmphasized() const { return isEmphasized_; }
    void setIsEmphasized(bool isEmphasized);
    // 4 at first, while the selection is drawn with 3 until it is set.
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);

    bool allowsVibrancy() const override { return false; }
    void draw(const Platform::Rect& dirtyRect) override;

protected:
    using View::View;
    // For subclasses, once a shared pointer holds the view.
    void setUp();

private:
    std::shared_ptr<Platform::VisualEffectView> effectView_;
    bool isEmphasized_ = true;
    double cornerRadius_ = 4.0;
};

}  // namespace Lorrel
