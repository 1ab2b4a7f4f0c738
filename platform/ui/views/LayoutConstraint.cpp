#include "platform/ui/views/LayoutConstraint.h"

#include "platform/ui/views/View.h"

namespace Platform {
namespace {

ViewRef commonAncestor(const ViewRef& first, const ViewRef& second)
{
    for (ViewRef view = first; view; view = view->superview()) {
        if (second->isDescendantOf(*view)) return view;
    }
    return nullptr;
}

}  // namespace

LayoutConstraint::LayoutConstraint(const ViewRef& first, LayoutAttribute firstAttribute, const ViewRef& second,
                                   LayoutAttribute secondAttribute, double constant)
    : first_(first),
      second_(second),
      firstAttribute_(firstAttribute),
      secondAttribute_(secondAttribute),
      hasSecond_(second != nullptr),
      constant_(constant)
{
}

void LayoutConstraint::setConstant(double constant)
{
    constant_ = constant;
    if (const ViewRef holder = holder_.lock()) holder->constraintsChanged();
}

void LayoutConstraint::setActive(bool active)
{
    if (active == isActive()) return;
    if (!active) {
        const auto self = shared_from_this();
        const ViewRef holder = std::exchange(holder_, {}).lock();
        return holder->letGo(self);
    }
    const ViewRef first = first_.lock(), second = second_.lock();
    if (!first || (hasSecond_ && !second)) return;
    const ViewRef holder = hasSecond_ ? commonAncestor(first, second) : first;
    if (!holder) return;
    holder_ = holder;
    holder->hold(shared_from_this());
}

void LayoutConstraint::activate(const std::vector<ConstraintRef>& constraints)
{
    for (const ConstraintRef& constraint : constraints) constraint->setActive(true);
}

// The list may be the one that the constraints leave.
void LayoutConstraint::deactivate(const std::vector<ConstraintRef>& constraints)
{
    for (const ConstraintRef& constraint : std::vector(constraints)) constraint->setActive(false);
}

ConstraintRef LayoutAnchor::constraintEqualTo(const LayoutAnchor& other, double constant) const
{
    return std::make_shared<LayoutConstraint>(view_.lock(), attribute_, other.view_.lock(), other.attribute_, constant);
}

ConstraintRef LayoutAnchor::constraintEqualToConstant(double constant) const
{
    return std::make_shared<LayoutConstraint>(view_.lock(), attribute_, nullptr, attribute_, constant);
}

}  // namespace Platform
