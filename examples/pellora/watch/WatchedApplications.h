#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Fennick/datastore/StringIdentifier.h"
#include "Lorrel/apps/AppRunnerMonitor.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// Whether the applications of a list are running ("app.IDENTIFIER", with the
// number 1 or 0 behind the text). Looks every few seconds, not at each update:
// a look reads the whole process table.
class WatchedApplications final : public Provider,
                                  public Lorrel::AppRunnerMonitorDelegate,
                                  public std::enable_shared_from_this<WatchedApplications> {
public:
    static std::shared_ptr<WatchedApplications> create(const std::vector<std::string>& bundleIdentifiers);

    void update(double elapsed) override;
    void monitorDidCheck(std::string_view bundleIdentifier, bool isRunning) override;

private:
    explicit WatchedApplications(const std::vector<std::string>& bundleIdentifiers);

    // Never started: the container's timer is the only one.
    const std::shared_ptr<Lorrel::AppRunnerMonitor> monitor_;
    std::map<std::string, std::shared_ptr<Fennick::StringIdentifier>, std::less<>> applications_;
    double sinceLook_;
};

}  // namespace Pellora
