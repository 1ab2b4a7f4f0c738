#pragma once

#include <compare>

namespace Platform {

// An instant: seconds since 1970-01-01 00:00 UTC, negative before. A type of
// its own, so that a variant, a property list and an encoder tell it from a number.
class Date {
public:
    constexpr Date() = default;
    constexpr explicit Date(double secondsSince1970) : seconds_(secondsSince1970) {}

    // The present instant by Clock::shared()'s wall clock.
    static Date now();
    // A date before every date of use, for things whose date is unknown.
    static constexpr Date distantPast() { return Date(-62135769600.0); }  // 0001-01-01

    constexpr double timeIntervalSince1970() const { return seconds_; }

    friend constexpr auto operator<=>(Date, Date) = default;

private:
    double seconds_ = 0;
};

}  // namespace Platform
