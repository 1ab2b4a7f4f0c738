#include "Fennick/Version.h"

namespace Fennick {

namespace {

constexpr bool isDigit(char c)
{
    return static_cast<unsigned char>(c - '0') < 10;
}

// What is left of one of the two texts.
struct Rest {
    const char* at;
    const char* end;

    bool isEmpty() const { return at == end; }
    bool startsWithDigit() const { return at != end && isDigit(*at); }
    unsigned char character() const { return static_cast<unsigned char>(*at); }
};

// Compares the digit runs at the front of both by value and steps over them.
std::weak_ordering compareRuns(Rest& a, Rest& b)
{
    while (a.at != a.end && *a.at == '0') ++a.at;
    while (b.at != b.end && *b.at == '0') ++b.at;
    int difference = 0;
    for (; a.startsWithDigit() && b.startsWithDigit(); ++a.at, ++b.at) {
        if (difference == 0) difference = *a.at - *b.at;
    }
    if (a.startsWithDigit()) return std::weak_ordering::greater;
    if (b.startsWithDigit()) return std::weak_ordering::less;
    return difference <=> 0;
}

}  // namespace

std::weak_ordering operator<=>(const Version& a, const Version& b)
{
    Rest left{a.string_.data(), a.string_.data() + a.string_.size()};
    Rest right{b.string_.data(), b.string_.data() + b.string_.size()};
    while (!left.isEmpty() && !right.isEmpty()) {
        if (isDigit(*left.at) && isDigit(*right.at)) {
            if (const auto order = compareRuns(left, right); order != 0) return order;
            continue;
        }
        // UTF-8 bytes order as the scalars that they encode.
        if (*left.at != *right.at) return left.character() <=> right.character();
        ++left.at;
        ++right.at;
    }
    return left.isEmpty() ? (right.isEmpty() ? std::weak_ordering::equivalent : std::weak_ordering::less)
                          : std::weak_ordering::greater;
}

}  // namespace Fennick
