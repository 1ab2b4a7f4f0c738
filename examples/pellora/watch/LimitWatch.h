#pragma once

#include <optional>
#include <utility>

#include "examples/pellora/watch/Limit.h"

namespace Pellora {

// Decides when a limit is worth a warning: once, when three readings in a row
// have passed it, and again only after a reading has come back well within it
// (by a twentieth of the limit). Thread: one.
class LimitWatch {
public:
    explicit LimitWatch(Limit limit) : limit_(std::move(limit)) {}

    const Limit& limit() const { return limit_; }
    // Whether this reading brings a warning. One that is absent changes nothing.
    bool isWarning(std::optional<double> reading);

private:
    bool isWellWithin(double reading) const;

    Limit limit_;
    int passed_ = 0;
    bool hasWarned_ = false;
};

}  // namespace Pellora
