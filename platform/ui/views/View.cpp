#include "platform/ui/views/View.h"

#include <algorithm>
#include <cmath>

#include "platform/ui/Archive.h"
#include "platform/ui/DesktopAppearance.h"
#include "platform/ui/Image.h"
#include "platform/ui/internal/ConstraintSolver.h"
#include "platform/ui/views/Window.h"

namespace Platform {
namespace {

constexpr std::string_view frameKey = "Frame";

}  // namespace

View::View(const PropertyList::Dictionary& archive) : frame_(archivedRect(archive, frameKey)) {}

View::~View()
{
    for (const ViewRef& view : subviews_) view->superview_.reset();
}

PropertyList::Dictionary View::archive() const
{
    PropertyList::Dictionary archive;
    Platform::archive(archive, frameKey, frame_);
    return archive;
}

void View::setFrame(const Rect& frame)
{
    const bool isResized = !(frame.size == frame_.size);
    if (frame == frame_) return;
    frame_ = frame;
    if (layer_) layer_->setFrame(frame);
    if (isResized) setNeedsLayout(true);
    setNeedsDisplay(true);
}

// By value: the list may be another view's own, which these leave.
void View::setSubviews(std::vector<ViewRef> views)
{
    for (const ViewRef& view : std::vector(subviews_)) {
        if (std::ranges::find(views, view) == views.end()) view->removeFromSuperview();
    }
    for (const ViewRef& view : views) {
        if (view->superview().get() != this) addSubview(view);
    }
    std::vector<ViewRef> ordered;
    for (const ViewRef& view : views) {
        const bool isMine = view->superview().get() == this;
        if (isMine && std::ranges::find(ordered, view) == ordered.end()) ordered.push_back(view);
    }
    subviews_ = std::move(ordered);
    setNeedsLayout(true);
}

void View::addSubview(const ViewRef& view)
{
    addSubview(view, ViewPosition::above, nullptr);
}

void View::addSubview(const ViewRef& view, ViewPosition position, const ViewRef& sibling)
{
    if (!view || isDescendantOf(*view)) return;
    // Copies: the arguments may be elements of the list that the view leaves.
    const ViewRef added = view, neighbour = sibling;
    added->removeFromSuperview();
    auto place = position == ViewPosition::below ? subviews_.begin() : subviews_.end();
    const auto found = std::ranges::find(subviews_, neighbour);
    if (neighbour && found != subviews_.end()) place = position == ViewPosition::below ? found : found + 1;
    subviews_.insert(place, added);
    added->superview_ = weak_from_this();
    setNeedsLayout(true);
    setNeedsDisplay(true);
    added->appearanceMayHaveChanged();
}

void View::removeFromSuperview()
{
    const ViewRef self = shared_from_this();
    const ViewRef parent = superview();
    if (!parent) return;
    for (ViewRef outer = parent; outer; outer = outer->superview()) outer->endConstraintsAcross(*this);
    superview_.reset();
    std::erase(parent->subviews_, self);
    parent->setNeedsDisplay(true);
    appearanceMayHaveChanged();
}

bool View::isDescendantOf(const View& view) const
{
    if (this == &view) return true;
    const ViewRef parent = superview();
    return parent && parent->isDescendantOf(view);
}

// Those that this view holds and that reach into the boundary's tree.
void View::endConstraintsAcross(const View& boundary)
{
    std::vector<ConstraintRef> crossing;
    for (const ConstraintRef& constraint : constraints_) {
        const ViewRef first = constraint->firstView(), second = constraint->secondView();
        const auto isInside = [&](const ViewRef& view) { return view && view->isDescendantOf(boundary); };
        if (isInside(first) || isInside(second)) crossing.push_back(constraint);
    }
    LayoutConstraint::deactivate(crossing);
}

void View::setHidden(bool hidden)
{
    if (isHidden_ == hidden) return;
    isHidden_ = hidden;
    setNeedsDisplay(true);
}

void View::setWantsLayer(bool wantsLayer)
{
    if (wantsLayer == (layer_ != nullptr)) return;
    layer_ = wantsLayer ? std::make_shared<Layer>() : nullptr;
    if (layer_) layer_->setFrame(frame_);
}

const View& View::root() const
{
    const View* view = this;
    while (const ViewRef parent = view->superview()) view = parent.get();
    return *view;
}

void View::setNeedsDisplay(bool needsDisplay)
{
    needsDisplay_ = needsDisplay;
    if (!needsDisplay) return;
    // A copy: the observer may draw, which may replace it.
    if (const auto observer = root().displayObserver_) observer();
}

void View::setNeedsLayout(bool needsLayout)
{
    needsLayout_ = needsLayout;
    if (needsLayout) setNeedsDisplay(true);
}

LayoutAnchor View::anchor(LayoutAttribute attribute)
{
    return {shared_from_this(), attribute};
}

void View::hold(const ConstraintRef& constraint)
{
    constraints_.push_back(constraint);
    constraintsChanged();
}

void View::letGo(const ConstraintRef& constraint)
{
    std::erase(constraints_, constraint);
    constraintsChanged();
}

// Those that a view holds for its own size matter to whoever places it.
void View::constraintsChanged()
{
    setNeedsLayout(true);
    if (const ViewRef parent = superview()) parent->setNeedsLayout(true);
}

// In order, so that a later sibling finds the earlier one's frame; twice, for
// those that hang on a later one.
void View::layout()
{
    for (int round = 0; round < 2; ++round) {
        for (const ViewRef& view : subviews_) {
            if (!view->keepsFrame_) view->setFrame(constrainedFrame(*this, *view));
        }
    }
}

void View::layoutSubtreeIfNeeded()
{
    if (!superview()) setFrame({frame_.origin, constrainedSize(*this)});
    if (needsLayout_) {
        layout();
        needsLayout_ = false;
    }
    for (const ViewRef& view : std::vector(subviews_)) view->layoutSubtreeIfNeeded();
}

ViewRef View::hitTest(Point point)
{
    if (isHidden_ || !bounds().contains(point)) return nullptr;
    for (auto view = subviews_.rbegin(); view != subviews_.rend(); ++view) {
        const Point origin = (*view)->frame_.origin;
        if (ViewRef found = (*view)->hitTest({point.x - origin.x, point.y - origin.y})) return found;
    }
    return shared_from_this();
}

std::shared_ptr<MenuItem> View::enclosingMenuItem() const
{
    if (auto item = menuItem_.lock()) return item;
    const ViewRef parent = superview();
    return parent ? parent->enclosingMenuItem() : nullptr;
}

}  // namespace Platform
