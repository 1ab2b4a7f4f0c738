#pragma once

#include <memory>
#include <vector>

#include "Fennick/datastore/IDataProviderContainer.h"
#include "examples/pellora/watch/LimitWatch.h"

namespace Pellora {

// Warns by user notification of every limit that is passed. Nothing waits for
// the desktop, and where it shows no notifications nothing happens. Thread: main.
class LimitWarnings final : public Fennick::DataProviderContainerDelegate {
public:
    LimitWarnings(std::shared_ptr<Fennick::IDataStore> readings, const std::vector<Limit>& limits);

    // From now on these limits. One that was there before goes on, so what it has warned of it does not warn of again.
    void take(const std::vector<Limit>& limits);

    void didRefresh(double elapsed) override;

private:
    void warn(const Limit& limit) const;

    const std::shared_ptr<Fennick::IDataStore> readings_;
    std::vector<LimitWatch> watches_;
};

}  // namespace Pellora
