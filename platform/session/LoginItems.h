#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/bundle/PropertyList.h"
#include "platform/runtime/Result.h"

namespace Platform {

// One thing that the session starts: at least "Label", a text, and "OnDemand",
// a boolean: whether it is switched on.
using JobDictionary = PropertyList::Dictionary;

// The programs that the user's session starts at login. Thread: main.
class LoginItems {
public:
    static LoginItems& shared();
    virtual ~LoginItems() = default;

    // Switches a starter application of this program's bundle (at
    // Contents/Library/LoginItems) on, whoever had switched it off, or off.
    virtual Result<void> setEnabled(std::string_view identifier, bool isEnabled) = 0;
    // What is there now, by label; absent when that cannot be read.
    virtual std::optional<std::vector<JobDictionary>> jobDictionaries() const = 0;
};

}  // namespace Platform
