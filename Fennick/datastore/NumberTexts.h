#pragma once

#include <cstdint>
#include <string>

namespace Fennick {

// A number of bytes in binary units, by the rules of the POSIX locale: 1536 is
// "1.5 KB". Two decimals at most, one for MB. Thread: any.
std::string byteCountText(std::uint64_t bytes);

// Exactly so many decimals in the current locale, the rest cut off: 2.999 with
// two is "2.99". "-" where that cannot be written (more than 999 decimals);
// a negative count of decimals is none. Thread: any.
std::string fixedDecimalsText(std::int64_t decimals, double number);

}  // namespace Fennick
