#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Fennick/MulticastDelegate.h"
#include "Fennick/datastore/DataProviderContainer.h"
#include "examples/pellora/Settings.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// The running measurements: the container with its providers, refreshed by the
// only timer of the program, and the order in which the readings are shown.
// Thread: main.
class Monitor {
public:
    // Measures what the machine has and what the settings name, from now on until it ends.
    explicit Monitor(const Settings& settings);
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;
    ~Monitor();

    // Goes on with other settings; what is measured as before keeps its history.
    void take(const Settings& settings);
    // One reading at once, beside those of the timer.
    void refresh() { container_->refresh(); }
    // Called after every refresh; held weakly.
    void addListener(const std::shared_ptr<Fennick::DataProviderContainerDelegate>& listener);
    const std::shared_ptr<Fennick::IDataStore>& readings() const { return readings_; }
    // Of all readings that there may be; those without an identifier are not there yet.
    std::vector<std::string> keys() const;

private:
    // The container's one delegate, which tells all listeners.
    struct Listeners final : Fennick::DataProviderContainerDelegate {
        void didRefresh(double elapsed) override;
        Fennick::MulticastDelegate<Fennick::DataProviderContainerDelegate> all;
    };

    void replace(std::shared_ptr<Provider>& present, const std::shared_ptr<Provider>& next);

    Settings settings_;
    std::vector<std::shared_ptr<Provider>> providers_;  // of each subject; null without readings
    const std::shared_ptr<Fennick::DataProviderContainer> container_;
    const std::shared_ptr<Fennick::IDataStore> readings_;
    const std::shared_ptr<Listeners> listeners_ = std::make_shared<Listeners>();
};

}  // namespace Pellora
