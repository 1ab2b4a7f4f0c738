#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "platform/network/URLSession.h"
#include "platform/network/internal/NetworkThread.h"
#include "platform/network/internal/PlainLine.h"
#include "platform/runtime/Queue.h"

namespace Platform {

// Sessions on libcurl.
class CurlURLSession final : public URLSession {
public:
    CurlURLSession(const URLSessionConfiguration& configuration, Connections onNetworkThread);

    FetchOutcome fetch(const URLRequest& request) override;
    std::shared_ptr<URLSessionTask> start(const URLRequest& request, Completion completion) override;

private:
    std::unique_ptr<PlainLine> takeLine();
    void giveBack(std::unique_ptr<PlainLine> line);

    const std::shared_ptr<SessionSettings> settings_;
    // The network thread's connections are everybody's, so only the shared session's stay there.
    const Connections onNetworkThread_;
    const std::shared_ptr<Queue> queue_;
    std::mutex mutex_;
    std::vector<std::unique_ptr<PlainLine>> idle_;
};

}  // namespace Platform
