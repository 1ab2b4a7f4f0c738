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

// Steps over what is the same in both; where that ends inside a run of digits
// of either, back to the start of the run.
void skipCommon(Rest& a, Rest& b)
{
    const char* const start = a.at;
    while (!a.isEmpty() && !b.isEmpty() && *a.at == *b.at) ++a.at, ++b.at;
    if (!a.startsWithDigit() && !b.startsWithDigit()) return;
    while (a.at != start && isDigit(a.at[-1])) --a.at, --b.at;
}

}  // namespace

std::weak_ordering operator<=>(const Version& a, const Version& b)
{
    Rest left{a.string_.data(), a.string_.data() + a.string_.size()};
    Rest right{b.string_.data(), b.string_.data() + b.string_.size()};
    for (;;) {
        skipCommon(left, right);
        if (!left.startsWithDigit() || !right.startsWithDigit()) break;
        if (const auto order = compareRuns(left, right); order != 0) return order;
    }
    if (left.isEmpty() || right.isEmpty()) return right.isEmpty() <=> left.isEmpty();
    return left.character() <=> right.character();  // UTF-8 bytes order as the scalars that they encode
}

}  // namespace Fennick
