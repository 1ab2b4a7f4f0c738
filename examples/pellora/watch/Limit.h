#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Pellora {

// A bound that a reading should not pass: "cpu.total>90", "disk.free<10G". A value.
struct Limit {
    enum class Side { above, below };

    std::string key;
    Side side = Side::above;
    double value = 0;

    bool isPassedBy(double reading) const { return side == Side::above ? reading > value : reading < value; }

    friend bool operator==(const Limit&, const Limit&) = default;
};

// The number may end in K, M, G or T, each 1024 times the one before. Absent
// for anything else.
std::optional<Limit> limitFrom(std::string_view text);
// The shortest text that reads back, without such an ending.
std::string textOf(const Limit& limit);

}  // namespace Pellora
