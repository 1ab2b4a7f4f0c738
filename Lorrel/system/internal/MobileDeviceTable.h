#pragma once

#include <span>

namespace Lorrel {

// One line of a family's table. A null icon file means that there is none.
struct MobileDeviceRow {
    const char* identifier;
    const char* name;
    const char* shortName;
    const char* iconName;
};

std::span<const MobileDeviceRow> phoneRows();
std::span<const MobileDeviceRow> audioRows();
std::span<const MobileDeviceRow> tabletRows();
std::span<const MobileDeviceRow> watchRows();

}  // namespace Lorrel
