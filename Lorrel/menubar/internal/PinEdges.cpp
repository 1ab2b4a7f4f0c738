#include "Lorrel/menubar/internal/PinEdges.h"

namespace Lorrel {

void pinEdges(const Platform::ViewRef& inner, const Platform::ViewRef& outer)
{
    inner->setTranslatesAutoresizingMaskIntoConstraints(false);
    Platform::LayoutConstraint::activate({inner->topAnchor().constraintEqualTo(outer->topAnchor()),
                                          inner->bottomAnchor().constraintEqualTo(outer->bottomAnchor()),
                                          inner->leadingAnchor().constraintEqualTo(outer->leadingAnchor()),
                                          inner->trailingAnchor().constraintEqualTo(outer->trailingAnchor())});
}

}  // namespace Lorrel
