#include "examples/pellora/watch/Ping.h"

#include "examples/pellora/Texts.h"

namespace Pellora {

namespace {

constexpr double secondsBetweenPings = 30;
constexpr double timeout = 10;  // seconds

std::string urlFrom(std::string_view address)
{
    return (address.find("://") == std::string_view::npos ? "https://" : "") + std::string(address);
}

}  // namespace

Ping::Ping(std::string_view address)
    : url_(urlFrom(address)),
      time_(addRaw("ping", text("PING", address), 0)),
      state_(std::make_shared<Fennick::StringIdentifier>("ping.state", text("PING_STATE"), std::nullopt)),
      sinceAsked_(secondsBetweenPings)
{
    add(state_);
}

void Ping::ask()
{
    sinceAsked_ = 0;
    answer_ = std::make_shared<Answer>();
    Fennick::WebRequest::ping(url_, timeout, [answer = answer_](Fennick::Outcome<Fennick::PingResult> outcome) {
        const std::lock_guard lock(answer->mutex);
        answer->outcome = std::move(outcome);
    });
}

void Ping::takeAnswer()
{
    {
        const std::lock_guard lock(answer_->mutex);
        if (!answer_->outcome) return;
    }
    const auto* result = std::get_if<Fennick::PingResult>(&*answer_->outcome);
    const bool isWell = result && result->isSuccess;
    take(time_, isWell ? std::optional(result->responseTime * 1000) : std::nullopt);
    state_->setString(text(isWell ? "PING_ANSWERS" : "PING_FAILS"), isWell ? 1 : 0);
    answer_ = nullptr;
}

void Ping::update(double elapsed)
{
    if (answer_) takeAnswer();
    sinceAsked_ += elapsed;
    if (!answer_ && (sinceAsked_ < 0 || sinceAsked_ >= secondsBetweenPings)) ask();
}

}  // namespace Pellora
