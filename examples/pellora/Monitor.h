#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Fennick/datastore/DataProviderContainer.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// The running measurements: the container with its providers, refreshed by the
// only timer of the program, and the order in which the readings are shown.
// Thread: main.
class Monitor {
public:
    // Refreshes every so many seconds from now on, until it ends.
    Monitor(double interval, const std::vector<std::shared_ptr<Provider>>& providers);
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;
    ~Monitor();

    const std::shared_ptr<Fennick::DataProviderContainer>& container() const { return container_; }
    const std::shared_ptr<Fennick::IDataStore>& readings() const { return readings_; }
    // Of all readings that there may be; those without an identifier are not there yet.
    std::vector<std::string> keys() const;

private:
    const std::vector<std::shared_ptr<Provider>> providers_;
    const std::shared_ptr<Fennick::DataProviderContainer> container_;
    const std::shared_ptr<Fennick::IDataStore> readings_;
};

}  // namespace Pellora
