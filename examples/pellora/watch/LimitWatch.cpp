#include "examples/pellora/watch/LimitWatch.h"

#include <cmath>

namespace Pellora {

namespace {

constexpr int readingsBeforeWarning = 3;
constexpr double marginShare = 0.05;

}  // namespace

bool LimitWatch::isWellWithin(double reading) const
{
    const double margin = marginShare * std::abs(limit_.value);
    return limit_.side == Limit::Side::above ? reading <= limit_.value - margin : reading >= limit_.value + margin;
}

bool LimitWatch::isWarning(std::optional<double> reading)
{
    if (!reading) return false;
    if (isWellWithin(*reading)) hasWarned_ = false;
    passed_ = limit_.isPassedBy(*reading) ? passed_ + 1 : 0;
    if (hasWarned_ || passed_ < readingsBeforeWarning) return false;
    hasWarned_ = true;
    return true;
}

}  // namespace Pellora
