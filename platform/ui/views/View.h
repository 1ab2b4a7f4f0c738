#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/bundle/PropertyList.h"
#include "platform/runtime/Subscription.h"
#include "platform/runtime/Window.h"
#include "platform/ui/Appearance.h"
#include "platform/ui/Layer.h"
#include "platform/ui/views/LayoutConstraint.h"

namespace Platform {

class MenuItem;
class View;
using ViewRef = std::shared_ptr<View>;

enum class ViewPosition { below, above };

// A rectangle of a window, a status item or a menu item that draws itself and
// the views in it. Made by std::make_shared; a superview owns its subviews and
// is known to them weakly. Thread: main.
class View : public std::enable_shared_from_this<View> {
public:
    explicit View(const Rect& frame = {}) : frame_(frame) {}
    // The frame that archive() wrote.
    explicit View(const PropertyList::Dictionary& archive);
    virtual ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual PropertyList::Dictionary archive() const;

    // In the superview's points.
    const Rect& frame() const { return frame_; }
    void setFrame(const Rect& frame);
    Rect bounds() const { return {{}, frame_.size}; }
    // The size that the content asks for; 0 for a side that does not care.
    virtual Size intrinsicContentSize() const { return {}; }

    ViewRef superview() const { return superview_.lock(); }
    // Back to front.
    const std::vector<ViewRef>& subviews() const { return subviews_; }
    // Those that are not in the list any more leave, new ones come, in the list's order.
    void setSubviews(std::vector<ViewRef> views);
    // In front of all others; a view leaves the superview that it had. A view
    // is not added into itself or into one that lies in it.
    void addSubview(const ViewRef& view);
    // Just behind or before a sibling, or all of them for null.
    void addSubview(const ViewRef& view, ViewPosition position, const ViewRef& sibling);
    // Constraints between it, or what lies in it, and views outside end.
    void removeFromSuperview();
    // Whether it is the view itself or lies in it, at any depth.
    bool isDescendantOf(const View& view) const;

    bool isHidden() const { return isHidden_; }
    void setHidden(bool hidden);

    bool wantsLayer() const { return layer_ != nullptr; }
    // Makes or drops the layer that is drawn behind the view's own content.
    void setWantsLayer(bool wantsLayer);
    const LayerRef& layer() const { return layer_; }
    virtual bool allowsVibrancy() const { return true; }

    // Absent: that of the superview, the window, the desktop.
    void setAppearance(std::optional<Appearance> appearance);
    Appearance effectiveAppearance() const;
    // Called after effectiveAppearance() may have changed with the name it has now.
    Subscription observeEffectiveAppearance(std::function<void()> observer);

    bool needsDisplay() const { return needsDisplay_; }
    void setNeedsDisplay(bool needsDisplay);
    bool needsLayout() const { return needsLayout_; }
    void setNeedsLayout(bool needsLayout);
    // Places the subviews by their constraints; overriders call it.
    virtual void layout();
    // layout() for every view that needs it, from this one inwards.
    void layoutSubtreeIfNeeded();

    // Off for views that are placed by constraints; on, the frame stays as it is set.
    bool translatesAutoresizingMaskIntoConstraints() const { return keepsFrame_; }
    void setTranslatesAutoresizingMaskIntoConstraints(bool translates) { keepsFrame_ = translates; }
    LayoutAnchor anchor(LayoutAttribute attribute);
    LayoutAnchor topAnchor() { return anchor(LayoutAttribute::top); }
    LayoutAnchor bottomAnchor() { return anchor(LayoutAttribute::bottom); }
    LayoutAnchor leadingAnchor() { return anchor(LayoutAttribute::left); }
    LayoutAnchor trailingAnchor() { return anchor(LayoutAttribute::right); }
    LayoutAnchor centerXAnchor() { return anchor(LayoutAttribute::centerX); }
    LayoutAnchor centerYAnchor() { return anchor(LayoutAttribute::centerY); }
    LayoutAnchor widthAnchor() { return anchor(LayoutAttribute::width); }
    LayoutAnchor heightAnchor() { return anchor(LayoutAttribute::height); }
    // The active ones that this view holds.
    const std::vector<ConstraintRef>& constraints() const { return constraints_; }
    void addConstraint(const ConstraintRef& constraint) { constraint->setActive(true); }
    void removeConstraints(const std::vector<ConstraintRef>& constraints) { LayoutConstraint::deactivate(constraints); }

    // Draws the view's own content into the current context, its top left corner at the origin.
    virtual void draw(const Rect& dirtyRect);
    // Lays out, then draws the view and what lies in it, at the context's
    // origin, for the view's appearance; nothing is left to be displayed then.
    void render(GraphicsContext& context);
    // The same as an image of the view's size.
    ImageRef rendered();

    // A click or release at the view's own point. False lets the superview have it.
    virtual bool mouseUp(Point) { return false; }
    // The front-most view at the point, which is in the view's own points; null outside.
    ViewRef hitTest(Point point);

    // Of the outermost superview; null outside a window.
    WindowRef window() const;
    // The item of a menu that shows it or a superview; null outside a menu.
    std::shared_ptr<MenuItem> enclosingMenuItem() const;
    void setEnclosingMenuItem(const std::weak_ptr<MenuItem>& item) { menuItem_ = item; }
    // Called when a part of this root view needs to be drawn again.
    void setDisplayObserver(std::function<void()> observer) { displayObserver_ = std::move(observer); }

protected:
    // After effectiveAppearance() may have changed.
    virtual void viewDidChangeEffectiveAppearance() {}

private:
    friend class LayoutConstraint;
    friend class Window;
    using Observers = std::vector<std::pair<int, std::function<void()>>>;

    void appearanceMayHaveChanged();
    void hold(const ConstraintRef& constraint);
    void letGo(const ConstraintRef& constraint);
    void endConstraintsAcross(const View& boundary);
    void constraintsChanged();
    void setWindow(const WindowRef& window);
    const View& root() const;

    Rect frame_;
    std::weak_ptr<View> superview_;
    std::vector<ViewRef> subviews_;
    std::vector<ConstraintRef> constraints_;
    LayerRef layer_;
    std::optional<Appearance> appearance_;
    std::weak_ptr<Window> window_;
    std::weak_ptr<MenuItem> menuItem_;
    Observers appearanceObservers_;
    Subscription desktopObserver_;
    std::function<void()> displayObserver_;
    int nextObserver_ = 0;
    bool isHidden_ = false;
    bool needsDisplay_ = true;
    bool needsLayout_ = true;
    bool keepsFrame_ = true;
};

}  // namespace Platform
