#pragma once

#include "platform/runtime/Shared.h"

namespace Tests {

// A service replaced by a fake for a scope:
//
//     Replaced<Platform::Clock, VirtualClock> clock;
//     clock->advance(2.5);
//
// Made and ended while no other thread uses the service.
template <typename Port, typename Fake>
class Replaced {
public:
    template <typename... Arguments>
    explicit Replaced(Arguments&&... arguments)
        : fake_(std::make_shared<Fake>(std::forward<Arguments>(arguments)...)), override_(fake_)
    {
    }

    Fake* operator->() const { return fake_.get(); }
    Fake& operator*() const { return *fake_; }

private:
    std::shared_ptr<Fake> fake_;
    typename Platform::Shared<Port>::Override override_;
};

}  // namespace Tests
