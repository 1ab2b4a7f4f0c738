#pragma once

#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace Fennick::internal {

// Puts a short text together on the stack: pieces and padded whole numbers.
// Room for four numbers of 64 bits with their labels.
class TextWriter {
public:
    TextWriter& text(std::string_view piece)
    {
        std::memcpy(at_, piece.data(), piece.size());
        at_ += piece.size();
        return *this;
    }

    // As the C formats %d, %02d and %03d print it: the sign counts as a digit.
    template <typename Integer>
    TextWriter& number(Integer value, int width = 1)
    {
        if (value >= 0 && value < 100 && width == 2) {
            *at_++ = static_cast<char>('0' + value / 10);
            *at_++ = static_cast<char>('0' + value % 10);
            return *this;
        }
        if (value < 0) {
            *at_++ = '-';
            --width;
        }
        char digits[20];
        auto magnitude = static_cast<unsigned long long>(value);
        if (value < 0) magnitude = 0 - magnitude;
        const char* end = std::to_chars(digits, digits + sizeof digits, magnitude).ptr;
        for (auto length = end - digits; length < width; ++length) *at_++ = '0';
        return text({digits, static_cast<std::size_t>(end - digits)});
    }

    std::string string() const { return {static_cast<const char*>(buffer_), static_cast<std::size_t>(at_ - buffer_)}; }

private:
    char buffer_[128];
    char* at_ = buffer_;
};

}  // namespace Fennick::internal
