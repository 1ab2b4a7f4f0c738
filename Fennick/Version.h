#pragma once

#include <compare>
#include <string>
#include <utility>

namespace Fennick {

// The version of an application or a document: kept exactly as text, ordered so
// that 2.10 comes after 2.9. A value; any thread.
//
// Two texts are walked in step. Where both have decimal digits (0 to 9), the
// whole runs compare by value, of any length, leading zeros aside; everything
// else compares by Unicode scalar. A text that ends where the other goes on
// orders first, so 1 comes before 1.0.
class Version {
public:
    Version() = delete;
    explicit Version(std::string text) : string_(std::move(text)) {}

    const std::string& string() const { return string_; }
    const std::string& description() const { return string_; }

    friend std::weak_ordering operator<=>(const Version& a, const Version& b);
    friend bool operator==(const Version& a, const Version& b) { return (a <=> b) == 0; }

private:
    std::string string_;
};

}  // namespace Fennick
