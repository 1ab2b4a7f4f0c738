#include "platform/network/internal/CurlURLSession.h"

#include <utility>

namespace Platform {

namespace {

constexpr std::size_t mostIdleLines = 8;

class NetworkTask final : public URLSessionTask {
public:
    explicit NetworkTask(std::shared_ptr<NetworkThread::Ticket> ticket) : ticket_(std::move(ticket)) {}
    void cancel() override { NetworkThread::shared().cancel(ticket_); }

private:
    std::shared_ptr<NetworkThread::Ticket> ticket_;
};

// Of a request that was never sent.
class EndedTask final : public URLSessionTask {
public:
    void cancel() override {}
};

// Where the library is missing: every fetch fails and says so.
class UnreachableURLSession final : public URLSession {
public:
    FetchOutcome fetch(const URLRequest& request) override
    {
        return {std::nullopt, nullptr,
                URLError(URLError::Code::unknown, request.url.absoluteString(), curl().library.failure())};
    }
    std::shared_ptr<URLSessionTask> start(const URLRequest& request, Completion completion) override
    {
        queue_->async([completion = std::move(completion), outcome = fetch(request)] { completion(outcome); });
        return std::make_shared<EndedTask>();
    }

private:
    const std::shared_ptr<Queue> queue_ = Queue::create("URLSession", Queue::Kind::serial);
};

std::shared_ptr<URLSession> made(const URLSessionConfiguration& configuration, Connections onNetworkThread)
{
    if (!curl().library.isUsable()) return std::make_shared<UnreachableURLSession>();
    return std::make_shared<CurlURLSession>(configuration, onNetworkThread);
}

std::shared_ptr<SessionSettings> settingsOf(const URLSessionConfiguration& configuration)
{
    auto settings = std::make_shared<SessionSettings>();
    settings->configuration = configuration;
    return settings;
}

}  // namespace

std::shared_ptr<URLSession> URLSession::shared()
{
    // Never destroyed: threads may outlive main.
    static const auto& session = *new std::shared_ptr<URLSession>(made({}, Connections::kept));
    return session;
}

std::shared_ptr<URLSession> URLSession::ephemeral(const URLSessionConfiguration& configuration)
{
    return made(configuration, Connections::own);
}

CurlURLSession::CurlURLSession(const URLSessionConfiguration& configuration, Connections onNetworkThread)
    : settings_(settingsOf(configuration)),
      onNetworkThread_(onNetworkThread),
      queue_(Queue::create("URLSession", Queue::Kind::serial))
{
}

FetchOutcome CurlURLSession::fetch(const URLRequest& request)
{
    Transfer transfer(request, settings_, Connections::kept);
    if (auto fault = transfer.fault()) return {std::nullopt, nullptr, std::move(fault)};
    auto line = takeLine();
    FetchOutcome outcome = line->perform(transfer);
    giveBack(std::move(line));
    return outcome;
}

std::shared_ptr<URLSessionTask> CurlURLSession::start(const URLRequest& request, Completion completion)
{
    auto transfer = std::make_unique<Transfer>(request, settings_, onNetworkThread_);
    const auto deliver = [queue = queue_, completion = std::move(completion)](FetchOutcome outcome) {
        queue->async([completion, outcome = std::move(outcome)]() mutable { completion(std::move(outcome)); });
    };
    if (auto fault = transfer->fault()) {
        deliver({std::nullopt, nullptr, std::move(fault)});
        return std::make_shared<EndedTask>();
    }
    return std::make_shared<NetworkTask>(NetworkThread::shared().submit(std::move(transfer), deliver));
}

std::unique_ptr<PlainLine> CurlURLSession::takeLine()
{
    std::lock_guard lock(mutex_);
    if (idle_.empty()) return std::make_unique<PlainLine>();
    auto line = std::move(idle_.back());
    idle_.pop_back();
    return line;
}

void CurlURLSession::giveBack(std::unique_ptr<PlainLine> line)
{
    std::lock_guard lock(mutex_);
    if (idle_.size() < mostIdleLines) idle_.push_back(std::move(line));
}

}  // namespace Platform
