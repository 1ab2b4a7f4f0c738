#pragma once

#include <memory>
#include <span>

#include "examples/pellora/Settings.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// One thing that is measured.
struct Subject {
    // A provider for it; null, or one without readings, where the machine lacks
    // the subject or the settings do not name one.
    std::shared_ptr<Provider> (*provider)(const Settings& settings);
    // Whether both settings ask for the same provider.
    bool (*isSame)(const Settings& one, const Settings& other);
};

// In the order in which their readings are shown.
std::span<const Subject> allSubjects();

}  // namespace Pellora
