#include "platform/session/internal/DBusUserNotificationCenter.h"

#include <chrono>
#include <deque>
#include <map>
#include <utility>

#include "platform/runtime/Clock.h"
#include "platform/runtime/RunLoop.h"
#include "platform/session/internal/NotificationServer.h"

namespace Platform {

namespace {

constexpr int mostUnderWay = 8;

}  // namespace

// The books, on the loop's thread.
struct DBusUserNotificationCenter::State : std::enable_shared_from_this<State> {
    using Completion = std::function<void(std::optional<Error>)>;
    using Responder = std::function<void(const UserNotificationResponse&)>;
    struct Entry {
        UserNotificationRequest request;
        Completion completion;
        std::chrono::nanoseconds submitted;
    };

    State(std::shared_ptr<BusConnection> ofConnection, std::chrono::nanoseconds ofServer)
        : connection(std::move(ofConnection)), deadline(ofServer)
    {
    }

    // Made with the first use, so that a program that never notifies has no part in it.
    NotificationServer& server()
    {
        if (!theServer) {
            theServer = std::make_unique<NotificationServer>(
                connection, deadline,
                NotificationServer::Events{[this](auto id, auto response) { ended(id, response); },
                                           [this] { changed(); }});
        }
        return *theServer;
    }

    void add(Entry entry)
    {
        queue.push_back(std::move(entry));
        pump();
    }

    void pump()
    {
        if (std::exchange(isPumping, true)) return;  // an answer came at once, inside deliver()
        while (!queue.empty() && underWay < mostUnderWay) {
            Entry entry = std::move(queue.front());
            queue.pop_front();
            ++underWay;
            deliver(std::move(entry));
        }
        isPumping = false;
    }

    void deliver(Entry entry)
    {
        server().takesMarkup([self = weak_from_this(), entry = std::move(entry)](bool takesMarkup) {
            const auto state = self.lock();
            if (!state) return;
            state->server().notify(entry.request.content, takesMarkup, [self, entry](Result<std::uint32_t> id) {
                if (const auto alive = self.lock()) alive->delivered(entry, std::move(id));
            });
        });
    }

    void delivered(const Entry& entry, Result<std::uint32_t> id)
    {
        --underWay;
        if (id && entry.request.onResponse) responders[*id] = entry.request.onResponse;
        if (!id) dropOverdue(id.error());
        pump();
        if (entry.completion) entry.completion(id ? std::nullopt : std::optional(id.error()));
    }

    // What waited behind a server that does not answer fails with it.
    void dropOverdue(const Error& error)
    {
        const auto now = Clock::shared().monotonic();
        std::vector<Entry> overdue;
        while (!queue.empty() && now - queue.front().submitted >= deadline) {
            overdue.push_back(std::move(queue.front()));
            queue.pop_front();
        }
        for (const Entry& entry : overdue) {
            if (entry.completion) entry.completion(error);
        }
    }

    void ended(std::uint32_t id, const UserNotificationResponse& response)
    {
        auto found = responders.extract(id);
        if (found) found.mapped()(response);
    }

    void changed()
    {
        for (const auto& [id, respond] : std::exchange(responders, {})) respond({});
    }

    std::shared_ptr<BusConnection> connection;
    const std::chrono::nanoseconds deadline;  // also for what waits behind a server that does not answer
    std::unique_ptr<NotificationServer> theServer;
    std::deque<Entry> queue;
    int underWay = 0;
    bool isPumping = false;
    std::map<std::uint32_t, Responder> responders;
};

DBusUserNotificationCenter::DBusUserNotificationCenter(std::shared_ptr<BusConnection> connection, RunLoop& loop,
                                                       std::chrono::nanoseconds deadline)
    : state_(std::make_shared<State>(std::move(connection), deadline)), loop_(loop)
{
}

DBusUserNotificationCenter::~DBusUserNotificationCenter() = default;

void DBusUserNotificationCenter::requestAuthorization(unsigned, std::function<void(Result<bool>)> completion)
{
    loop_.post([state = state_, completion = std::move(completion)] { state->server().isThere(completion); });
}

void DBusUserNotificationCenter::settings(std::function<void(const UserNotificationSettings&)> completion)
{
    loop_.post([state = state_, completion = std::move(completion)] {
        state->server().isThere([completion](const Result<bool>& isThere) {
            const bool canShow = isThere && *isThere;
            completion(canShow ? UserNotificationSettings{AuthorizationStatus::authorized, AlertStyle::banner}
                               : UserNotificationSettings{AuthorizationStatus::denied, AlertStyle::none});
        });
    });
}

void DBusUserNotificationCenter::add(const UserNotificationRequest& request,
                                     std::function<void(std::optional<Error>)> completion)
{
    loop_.post([state = state_, request, completion = std::move(completion)] {
        state->add({request, completion, Clock::shared().monotonic()});
    });
}

}  // namespace Platform
