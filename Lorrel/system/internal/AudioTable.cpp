#include "Lorrel/system/internal/MobileDeviceTable.h"

namespace Lorrel {

namespace {

// There never was an iPod6,1 or an iPod8,1.
constexpr MobileDeviceRow rows[] = {
    {"iPod1,1", "1st Gen iPod", "iPod", "com.apple.ipod-touch.icns"},
    {"iPod2,1", "2nd Gen iPod", "iPod 2", "com.apple.ipod-touch-2.icns"},
    {"iPod3,1", "3rd Gen iPod", "iPod 3", "com.apple.ipod-touch-2.icns"},
    {"iPod4,1", "4th Gen iPod", "iPod 4", "com.apple.ipod-touch-4-black.icns"},
    {"iPod5,1", "5th Gen iPod", "iPod 5", "com.apple.ipod-touch-5-sparrow.icns"},
    {"iPod7,1", "6th Gen iPod", "iPod 6", "com.apple.ipod-touch-6-6b6a6d.icns"},
    {"iPod9,1", "7th Gen iPod", "iPod 7", "com.apple.ipod-touch-7-5.icns"},
};

}  // namespace

std::span<const MobileDeviceRow> audioRows()
{
    return rows;
}

}  // namespace Lorrel
