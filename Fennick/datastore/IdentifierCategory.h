#pragma once

namespace Fennick {

// What a number is, which decides how it is shown.
enum class IdentifierCategory {
    raw,         // a plain number
    size,        // a count of bytes
    percentage,  // followed by a percent sign
};

}  // namespace Fennick
