#pragma once

#include <span>
#include <string_view>

namespace Lorrel {

// One line of a family's table. An empty icon file means that there is none.
struct MobileDeviceRow {
    std::string_view identifier;
    std::string_view name;
    std::string_view shortName;
    std::string_view iconName;
};

std::span<const MobileDeviceRow> phoneRows();
std::span<const MobileDeviceRow> audioRows();
std::span<const MobileDeviceRow> tabletRows();
std::span<const MobileDeviceRow> watchRows();

}  // namespace Lorrel
