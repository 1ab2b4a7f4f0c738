#include "Lorrel/system/internal/MobileDeviceTable.h"

namespace Lorrel {

namespace {

// The order of lookup. The GPS model of 44 mm of Series 6 is listed under the bare
// family number, so "Watch6,2" gets the generic record.
constexpr MobileDeviceRow rows[] = {
    {"Watch1,1", "Apple Watch 38mm case", "Watch", "com.apple.watch-38mm-3.icns"},
    {"Watch1,2", "Apple Watch 42mm case", "Watch", "com.apple.watch-42mm-3.icns"},
    {"Watch2,6", "Apple Watch Series 1 38mm case", "Watch S1", "com.apple.watch-38mm-3.icns"},
    {"Watch2,7", "Apple Watch Series 1 42mm case", "Watch S1", "com.apple.watch-42mm-3.icns"},
    {"Watch2,3", "Apple Watch Series 2 38mm case", "Watch S2", "com.apple.watch-38mm-3.icns"},
    {"Watch2,4", "Apple Watch Series 2 42mm case", "Watch S2", "com.apple.watch-42mm-3.icns"},
    {"Watch3,1", "Apple Watch Series 3 38mm case (GPS+Cellular)", "Watch S3", "com.apple.watch-38mm-4.icns"},
    {"Watch3,2", "Apple Watch Series 3 42mm case (GPS+Cellular)", "Watch S3", "com.apple.watch-42mm-4.icns"},
    {"Watch3,3", "Apple Watch Series 3 38mm case (GPS)", "Watch S3", "com.apple.watch-38mm-4.icns"},
    {"Watch3,4", "Apple Watch Series 3 42mm case (GPS)", "Watch S3", "com.apple.watch-42mm-4.icns"},
    {"Watch4,1", "Apple Watch Series 4 40mm case (GPS)", "Watch S4", "com.apple.watch-40mm-4.icns"},
    {"Watch4,2", "Apple Watch Series 4 44mm case (GPS)", "Watch S4", "com.apple.watch-44mm-4.icns"},
    {"Watch4,3", "Apple Watch Series 4 40mm case (GPS+Cellular)", "Watch S4", "com.apple.watch-40mm-4.icns"},
    {"Watch4,4", "Apple Watch Series 4 44mm case (GPS+Cellular)", "Watch S4", "com.apple.watch-44mm-4.icns"},
    {"Watch5,1", "Apple Watch Series 5 40mm case (GPS)", "Watch S5", "com.apple.watch-40mm-5.icns"},
    {"Watch5,2", "Apple Watch Series 5 44mm case (GPS)", "Watch S5", "com.apple.watch-44mm-5.icns"},
    {"Watch5,3", "Apple Watch Series 5 40mm case (GPS+Cellular)", "Watch S5", "com.apple.watch-40mm-5.icns"},
    {"Watch5,4", "Apple Watch Series 5 44mm case (GPS+Cellular)", "Watch S5", "com.apple.watch-44mm-5.icns"},
    {"Watch5,9", "Apple Watch SE 40mm case (GPS)", "Watch SE", "com.apple.watch-40mm-6.icns"},
    {"Watch5,10", "Apple Watch SE 44mm case (GPS)", "Watch SE", "com.apple.watch-44mm-6.icns"},
    {"Watch5,11", "Apple Watch SE 40mm case (GPS+Cellular)", "Watch SE", "com.apple.watch-40mm-6.icns"},
    {"Watch5,12", "Apple Watch SE 44mm case (GPS+Cellular)", "Watch SE", "com.apple.watch-44mm-6.icns"},
    {"Watch6,1", "Apple Watch Series 6 40mm case (GPS)", "Watch S6", "com.apple.watch-40mm-6.icns"},
    {"Watch6", "Apple Watch Series 6 44mm case (GPS)", "Watch S6", "com.apple.watch-44mm-6.icns"},
    {"Watch6,3", "Apple Watch Series 6 40mm case (GPS+Cellular)", "Watch S6", "com.apple.watch-40mm-6.icns"},
    {"Watch6,4", "Apple Watch Series 6 44mm case (GPS+Cellular)", "Watch S6", "com.apple.watch-44mm-6.icns"},
    {"Watch6,6", "Apple Watch Series 7 41mm case (GPS)", "Watch S7", "com.apple.watch-41mm-7.icns"},
    {"Watch6,7", "Apple Watch Series 7 45mm case (GPS)", "Watch S7", "com.apple.watch-45mm-7.icns"},
    {"Watch6,8", "Apple Watch Series 7 41mm case (GPS+Cellular)", "Watch S7", "com.apple.watch-41mm-7.icns"},
    {"Watch6,9", "Apple Watch Series 7 45mm case (GPS+Cellular)", "Watch S7", "com.apple.watch-45mm-7.icns"},
    {"Watch6,10", "Apple Watch SE 2nd Gen 40mm case (GPS)", "Watch SE 2", "com.apple.watch-40mm-8.icns"},
    {"Watch6,11", "Apple Watch SE 2nd Gen 44mm case (GPS)", "Watch SE 2", "com.apple.watch-44mm-8.icns"},
    {"Watch6,12", "Apple Watch SE 2nd Gen 40mm case (GPS+Cellular)", "Watch SE 2", "com.apple.watch-40mm-8.icns"},
    {"Watch6,13", "Apple Watch SE 2nd Gen 44mm case (GPS+Cellular)", "Watch SE 2", "com.apple.watch-44mm-8.icns"},
    {"Watch6,14", "Apple Watch Series 8 41mm case (GPS)", "Watch S8", "com.apple.watch-41mm-8.icns"},
    {"Watch6,15", "Apple Watch Series 8 45mm case (GPS)", "Watch S8", "com.apple.watch-45mm-8.icns"},
    {"Watch6,16", "Apple Watch Series 8 41mm case (GPS+Cellular)", "Watch S8", "com.apple.watch-41mm-8.icns"},
    {"Watch6,17", "Apple Watch Series 8 45mm case (GPS+Cellular)", "Watch S8", "com.apple.watch-45mm-8.icns"},
    {"Watch6,18", "Apple Watch Ultra", "Watch Ultra", "com.apple.watch-u-8.icns"},
};

}  // namespace

std::span<const MobileDeviceRow> watchRows()
{
    return rows;
}

}  // namespace Lorrel
