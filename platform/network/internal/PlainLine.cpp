#include "platform/network/internal/PlainLine.h"

#include <algorithm>
#include <csignal>
#include <ctime>

namespace Platform {

namespace {

// Keeps the SIGPIPE of a lost connection from ending the process, without
// changing what the process does about its own.
class WithoutBrokenPipe {
public:
    WithoutBrokenPipe()
    {
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    WithoutBrokenPipe(const WithoutBrokenPipe&) = delete;
    WithoutBrokenPipe& operator=(const WithoutBrokenPipe&) = delete;
    ~WithoutBrokenPipe()
    {
        if (sigismember(&before_, SIGPIPE) == 1) return;  // the caller's own to take
        constexpr timespec atOnce{};
        sigtimedwait(&pipe_, nullptr, &atOnce);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

private:
    sigset_t pipe_{};
    sigset_t before_{};
};

}  // namespace

PlainLine::PlainLine() : easy_(curl().newEasy()), multi_(curl().newMulti()) {}

FetchOutcome PlainLine::perform(Transfer& transfer)
{
    const WithoutBrokenPipe guard;
    const Utf8HostNames names;
    transfer.prepare(easy_.get(), std::chrono::steady_clock::now());
    const bool isIn = curl().addToMulti(multi_.get(), easy_.get()) == CURLM_OK;
    FetchOutcome outcome = isIn ? waitFor(transfer) : transfer.failed(URLError::Code::unknown);
    curl().removeFromMulti(multi_.get(), easy_.get());
    forgetSession(easy_.get());
    return outcome;
}

FetchOutcome PlainLine::waitFor(Transfer& transfer)
{
    constexpr std::chrono::milliseconds longest(60 * 60 * 1000);
    for (;;) {
        int running = 0;
        const CURLMcode moved = curl().perform(multi_.get(), &running);
        int left = 0;
        while (const CURLMsg* message = curl().nextMessage(multi_.get(), &left)) {
            if (message->msg == CURLMSG_DONE) return transfer.finished(message->data.result);
        }
        if (moved != CURLM_OK) return transfer.failed(URLError::Code::unknown);
        const auto now = std::chrono::steady_clock::now();
        const auto deadline = transfer.deadline();
        if (deadline <= now) return transfer.failed(URLError::Code::timedOut);
        const auto wait =
            deadline - now < longest ? std::chrono::ceil<std::chrono::milliseconds>(deadline - now) : longest;
        curl().poll(multi_.get(), nullptr, 0, static_cast<int>(wait.count()), nullptr);
    }
}

}  // namespace Platform
