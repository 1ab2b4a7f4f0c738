#pragma once

#include <cstdint>
#include <string>

namespace Fennick {

// Short texts for sizes and transfer rates, with "." as decimal point in every
// locale. Rates count in bytes (units of 1,024) or, with `bits`, in bits (units
// of 1,000). Thread: any.
class DiskUtilities {
public:
    DiskUtilities() = delete;

    // See Fennick::byteCountText.
    static std::string byteCountText(std::uint64_t bytes);

    // Two decimals from a million on: "1.00 MB/s". A terabit a second and more
    // is "0 b/s".
    static std::string rateText(std::uint64_t bytesPerSecond, bool bits);
    // Whole numbers, except for gigabytes.
    static std::string compactRateText(std::uint64_t bytesPerSecond, bool bits);

    // The rate of so many bytes in so many seconds; "-" without a positive duration.
    static std::string rateText(std::uint64_t bytes, double seconds, bool bits);
    static std::string compactRateText(std::uint64_t bytes, double seconds, bool bits);
};

}  // namespace Fennick
