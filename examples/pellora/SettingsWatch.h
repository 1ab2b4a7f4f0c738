#pragma once

#include <functional>

#include "platform/bundle/UserDefaults.h"
#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Subscription.h"

namespace Pellora {

// Calls whenever settings may have been saved, by this process or another:
// something has happened in the folder where they are kept. Where that cannot
// be watched it is never heard of (the log says why). Thread: main.
class SettingsWatch {
public:
    SettingsWatch(const Platform::UserDefaults& kept, std::function<void()> handler);

private:
    Platform::FileDescriptor folder_;
    Platform::Subscription watch_;  // ends before the descriptor closes
};

}  // namespace Pellora
