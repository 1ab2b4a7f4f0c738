#include "Lorrel/system/internal/MobileDeviceTable.h"

namespace Lorrel {

namespace {

// In order of model number, which is the order of lookup.
constexpr MobileDeviceRow rows[] = {
    {"iPhone1,1", "iPhone", "iPhone", ""},
    {"iPhone1,2", "iPhone 3G", "iPhone 3", "com.apple.iphone-3g.icns"},
    {"iPhone2,1", "iPhone 3GS", "iPhone 3", "com.apple.iphone-3g.icns"},
    {"iPhone3,1", "iPhone 4", "iPhone 4", "com.apple.iphone-4-black.icns"},
    {"iPhone3,2", "iPhone 4 (GSM Rev A)", "iPhone 4", "com.apple.iphone-4-black.icns"},
    {"iPhone3,3", "iPhone 4 (CDMA)", "iPhone 4", "com.apple.iphone-4-black.icns"},
    {"iPhone4,1", "iPhone 4S", "iPhone 4S", "com.apple.iphone-4s-black.icns"},
    {"iPhone5,1", "iPhone 5 (GSM)", "iPhone 5", "com.apple.iphone-5-black.icns"},
    {"iPhone5,2", "iPhone 5 (GSM+CDMA)", "iPhone 5", "com.apple.iphone-5-black.icns"},
    {"iPhone5,3", "iPhone 5c (GSM)", "iPhone 5c", "com.apple.iphone-5c-f5f4f7.icns"},
    {"iPhone5,4", "iPhone 5c (Global)", "iPhone 5c", "com.apple.iphone-5c-f5f4f7.icns"},
    {"iPhone6,1", "iPhone 5s (GSM)", "iPhone 5s", "com.apple.iphone-5s-99989b.icns"},
    {"iPhone6,2", "iPhone 5s (Global)", "iPhone 5s", "com.apple.iphone-5s-99989b.icns"},
    {"iPhone7,1", "iPhone 6 Plus", "iPhone 6+", "com.apple.iphone-6-plus-b4b5b9.icns"},
    {"iPhone7,2", "iPhone 6", "iPhone 6", "com.apple.iphone-6-b4b5b9.icns"},
    {"iPhone8,1", "iPhone 6s", "iPhone 6s", "com.apple.iphone-6s-b9b7ba.icns"},
    {"iPhone8,2", "iPhone 6s Plus", "iPhone 6s+", "com.apple.iphone-6s-plus-b9b7ba.icns"},
    {"iPhone8,4", "iPhone SE", "iPhone SE", "com.apple.iphone-se-aeb1b8.icns"},
    {"iPhone9,1", "iPhone 7", "iPhone 7", "com.apple.iphone-7-1.icns"},
    {"iPhone9,2", "iPhone 7 Plus", "iPhone 7+", "com.apple.iphone-7-plus-1.icns"},
    {"iPhone9,3", "iPhone 7", "iPhone 7", "com.apple.iphone-7-1.icns"},
    {"iPhone9,4", "iPhone 7 Plus", "iPhone 7+", "com.apple.iphone-7-plus-1.icns"},
    {"iPhone10,1", "iPhone 8", "iPhone 8", "com.apple.iphone-8-1.icns"},
    {"iPhone10,2", "iPhone 8 Plus", "iPhone 8+", "com.apple.iphone-8-plus-1.icns"},
    {"iPhone10,3", "iPhone X", "iPhone X", "com.apple.iphone-x-1.icns"},
    {"iPhone10,4", "iPhone 8", "iPhone 8", "com.apple.iphone-8-1.icns"},
    {"iPhone10,5", "iPhone 8 Plus", "iPhone 8+", "com.apple.iphone-8-plus-1.icns"},
    {"iPhone10,6", "iPhone X", "iPhone X", "com.apple.iphone-x-1.icns"},
    {"iPhone11,2", "iPhone XS", "iPhone XS", "com.apple.iphone-xs-1.icns"},
    {"iPhone11,4", "iPhone XS Max", "XS Max", "com.apple.iphone-xs-max-1.icns"},
    {"iPhone11,6", "iPhone XS Max", "XS Max", "com.apple.iphone-xs-max-1.icns"},
    {"iPhone11,8", "iPhone XR", "iPhone XR", "com.apple.iphone-xr-1.icns"},
    {"iPhone12,1", "iPhone 11", "iPhone 11", "com.apple.iphone-11-1.icns"},
    {"iPhone12,3", "iPhone 11 Pro", "11 Pro", "com.apple.iphone-11-pro-1.icns"},
    {"iPhone12,5", "iPhone 11 Pro Max", "11 Pro Max", "com.apple.iphone-11-pro-max-1.icns"},
    {"iPhone12,8", "iPhone SE 2nd Gen", "iPhone SE 2", "com.apple.iphone-se-2-1.icns"},
    {"iPhone13,1", "iPhone 12 mini", "12 mini", "com.apple.iphone-12-mini-1.icns"},
    {"iPhone13,2", "iPhone 12", "iPhone 12", "com.apple.iphone-12-1.icns"},
    {"iPhone13,3", "iPhone 12 Pro", "12 Pro", "com.apple.iphone-12-pro-1.icns"},
    {"iPhone13,4", "iPhone 12 Pro Max", "12 Pro Max", "com.apple.iphone-12-pro-max-1.icns"},
    {"iPhone14,2", "iPhone 13 Pro", "13 Pro", "com.apple.iphone-13-pro-1.icns"},
    {"iPhone14,3", "iPhone 13 Pro Max", "13 Pro Max", "com.apple.iphone-13-pro-max-1.icns"},
    {"iPhone14,4", "iPhone 13 mini", "13 mini", "com.apple.iphone-13-mini-1.icns"},
    {"iPhone14,5", "iPhone 13", "iPhone 13", "com.apple.iphone-13-1.icns"},
    {"iPhone14,6", "iPhone SE 3rd Gen", "iPhone SE 3", "com.apple.iphone-se-3-1.icns"},
    {"iPhone14,7", "iPhone 14", "iPhone 14", "com.apple.iphone-14-1.icns"},
    {"iPhone14,8", "iPhone 14 Plus", "14 Plus", "com.apple.iphone-14-plus-1.icns"},
    {"iPhone15,2", "iPhone 14 Pro", "14 Pro", "com.apple.iphone-14-pro-1.icns"},
    {"iPhone15,3", "iPhone 14 Pro Max", "14 Pro Max", "com.apple.iphone-14-pro-max-1.icns"},
    {"iPhone15,4", "iPhone 15", "iPhone 15", "com.apple.iphone-15-1.icns"},
    {"iPhone15,5", "iPhone 15 Plus", "15 Plus", "com.apple.iphone-15-plus-1.icns"},
    {"iPhone16,1", "iPhone 15", "15 Pro", "com.apple.iphone-15-pro-2.icns"},
    {"iPhone16,2", "iPhone 15", "15 Pro Max", "com.apple.iphone-15-pro-2.icns"},
};

}  // namespace

std::span<const MobileDeviceRow> phoneRows()
{
    return rows;
}

}  // namespace Lorrel
