#pragma once

#include "platform/menubar/StatusItem.h"

namespace Lorrel {

// The main item of the controller that was made last, from which the menu
// bar's look is told. One for the process.
struct ReferenceItem {
    static ReferenceItem& shared();

    Platform::StatusItemRef item;
};

}  // namespace Lorrel
