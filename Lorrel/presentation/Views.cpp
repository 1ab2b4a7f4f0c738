#include "Lorrel/presentation/Views.h"

namespace Lorrel {

void centerInSuperview(const Platform::ViewRef& view, double width, double height)
{
    const Platform::ViewRef superview = view->superview();
    if (!superview) return;
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    Platform::LayoutConstraint::activate({
        view->centerXAnchor().constraintEqualTo(superview->centerXAnchor()),
        view->centerYAnchor().constraintEqualTo(superview->centerYAnchor()),
        view->widthAnchor().constraintEqualToConstant(width),
        view->heightAnchor().constraintEqualToConstant(height),
    });
}

}  // namespace Lorrel
