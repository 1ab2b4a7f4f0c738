#include "examples/pellora/watch/LimitWarnings.h"

#include <algorithm>
#include <utility>

#include "Fennick/notifications/Notifications.h"
#include "examples/pellora/Texts.h"

namespace Pellora {

LimitWarnings::LimitWarnings(std::shared_ptr<Fennick::IDataStore> readings, const std::vector<Limit>& limits)
    : readings_(std::move(readings)), watches_(limits.begin(), limits.end())
{
}

void LimitWarnings::take(const std::vector<Limit>& limits)
{
    const auto former = std::exchange(watches_, {});
    for (const Limit& limit : limits) {
        const auto same = std::ranges::find(former, limit, &LimitWatch::limit);
        watches_.push_back(same == former.end() ? LimitWatch(limit) : *same);
    }
}

void LimitWarnings::didRefresh(double /*elapsed*/)
{
    for (auto& watch : watches_) {
        const auto number = readings_->valueFor(watch.limit().key);
        if (watch.isWarning(number ? std::optional(number->doubleValue()) : std::nullopt)) warn(watch.limit());
    }
}

void LimitWarnings::warn(const Limit& limit) const
{
    const auto reading = readings_->identifierFor(limit.key);
    if (!reading) return;
    const char* title = limit.side == Limit::Side::above ? "WARNING_ABOVE" : "WARNING_BELOW";
    Fennick::Notifications::send(text(title, reading->name()), text("WARNING_NOW", readings_->stringFor(limit.key)));
}

}  // namespace Pellora
