#pragma once

#include <cstdint>
#include <memory>

#include "Fennick/datastore/IDataStore.h"

namespace Fennick {

// Gathers readings into a store of its own. Held by std::shared_ptr and compared
// by identity. Thread: the one that refreshes its container.
class IDataProvider : public InfoProvider {
public:
    virtual std::shared_ptr<IDataStore> store() const = 0;
    virtual std::int64_t historySize() const = 0;
    virtual void setHistorySize(std::int64_t size) = 0;
    // For programs that reset their providers; a container never does.
    virtual void reset() {}
    // Takes fresh readings, `elapsed` seconds after the last ones.
    virtual void update(double elapsed) = 0;
};

}  // namespace Fennick
